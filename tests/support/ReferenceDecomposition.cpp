// SPDX-License-Identifier: Apache-2.0
#include "support/ReferenceDecomposition.h"

#include <cstring>
#include <vector>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "support/ExpectedFeatures.h"
#include "support/ReferencePass.h"

namespace {

struct FirstPass {
    ReferenceLines lines;  // they go to the temporary file
    std::FILE *output;
    bool monochrome;
    int resolution = 0;
    bool resolutionPending = true;

    void PutPJL(const std::string &command) { KVfputs(command.c_str(), output); }

    void PutFeature() {
        std::vector<std::string> tokens(1);
        for (const char byte : lines.line.substr(0, 99)) {
            if (byte != ' ') {
                tokens.back() += byte;
            } else if (!tokens.back().empty()) {
                tokens.emplace_back();
            }
        }
        if (tokens.back().empty()) tokens.pop_back();
        if (tokens.size() < 3) return;
        const std::string &keyword = tokens[1], &value = tokens[2];
        if (keyword == "*KVOutputMode" && value == "600x600") resolution = 600;
        if (keyword == "*KVOutputMode" && value == "1200x1200") resolution = 1200;
        if (monochrome && keyword == "*KVHalftone") {
            for (const char *name : {"TTRC", "GTRC", "ITRC", "TSCR", "GSCR", "ISCR"}) {
                const std::string command = std::string("@PJL SET JOBATTR=\"@") + name;
                if (value == "Fineness") PutPJL(command + "=64\"\n");
                if (value == "Gradation") PutPJL(command + "=66\"\n");
            }
        }
        if (resolutionPending && resolution != 0) {
            PutPJL("@PJL SET RESOLUTION=" + std::to_string(resolution) + "\n");
            PutPJL("@PJL SET BITSPERPIXEL=1\n");
            PutPJL("@PJL SET JOBATTR=\"@DRDM=RASTER\"\n");
            resolutionPending = false;
        }
        for (const ExpectedFeature &row : kExpectedFeatures) {
            if (keyword == row.keyword && value == row.value) PutPJL(row.command);
        }
    }

    bool HoldsAll(std::initializer_list<const char *> names) const {
        for (const char *name : names) {
            if (lines.line.find(name) == std::string::npos) return false;
        }
        return true;
    }

    void PutSettings() {
        const std::string &line = lines.line;
        std::vector<std::size_t> digits;
        for (std::size_t i = 0; i < line.size() && digits.size() < 100; i++) {
            if (std::strchr("0123456789", line[i]) && line[i] != '\0') digits.push_back(i);
        }
        for (std::size_t i = 0; i < digits.size(); i++) {
            const std::size_t p = digits[i];
            std::string value(1, line[p]);
            if (i + 1 < digits.size() && digits[i + 1] == p + 1) value += line[digits[++i]];
            if (p < 5) continue;
            // A NUL ends a name.
            const std::string name = line.substr(p - 5, 4).c_str();
            PutPJL("@PJL SET JOBATTR=\"@" + name + "=" + value + "\"\n");
        }
    }

    // False if the job was cancelled.
    bool Process(int byte) {
        if (byte != 10 && byte != 13) {
            lines.Take(byte);
            return true;
        }
        if (lines.line.substr(0, 15) == "%%BeginFeature:") {
            PutFeature();
        } else if (HoldsAll({"TSCR", "GSCR", "ISCR", "TTRC", "GTRC", "ITRC"}) ||
                   HoldsAll({"TCPR", "GCPR", "ICPR"})) {
            PutSettings();
        }
        return lines.End(byte);
    }
};

std::string ReadAll(std::FILE *file) {
    std::string text;
    std::rewind(file);
    for (int byte; (byte = std::fgetc(file)) != EOF;) text += static_cast<char>(byte);
    return text;
}

void SecondPass(const std::string &stored, std::FILE *output) {
    std::string line;
    for (const char byte : stored) {
        line += byte;
        const bool ends = byte == 10 || byte == 13;
        if (!ends && line.size() < 8065) continue;
        std::fwrite(line.data(), 1, line.size(), output);
        if (ends) line.pop_back();
        if (ends && CancelJob == 1 && (line == "ep" || line == "endp" || line == "showpage"))
            return;
        line.clear();
    }
}

}  // namespace

std::string ReferenceDecomposition(std::FILE *input, std::FILE *output, char *const argv[],
                                   bool monochrome) {
    std::FILE *stored = std::tmpfile();
    FirstPass pass{{stored, argv}, output, monochrome};
    int byte = std::fgetc(input);
    bool goesOn = true;
    for (int next; goesOn && byte != EOF && (next = std::fgetc(input)) != EOF; byte = next) {
        goesOn = pass.Process(byte);
    }
    if (goesOn) {
        if (byte != EOF) KVfputc(byte, stored);
        if (byte != 4) KVfputc(4, stored);
    }
    const std::string text = ReadAll(stored);
    std::fclose(stored);
    if (goesOn) {
        KVfputs("@PJL ENTER LANGUAGE=POSTSCRIPT\n", output);
        SecondPass(text, output);
    }
    return text;
}
