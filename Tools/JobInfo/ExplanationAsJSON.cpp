// SPDX-License-Identifier: Apache-2.0
#include <nlohmann/json.hpp>

#include "Tools/JobInfo/Explanation.h"
#include "Tools/JobInfo/PJLLine.h"
#include "Tools/JobInfo/Text.h"

namespace {

using JSON = nlohmann::ordered_json;

JSON EffectsAsJSON(const std::vector<Effect> &effects) {
    JSON list = JSON::array();
    for (const Effect &effect : effects) {
        list.push_back(
            {{"line", Visible(MaskSecret(effect.line))}, {"meaning", Visible(effect.meaning)}});
    }
    return list;
}

JSON KeysAsJSON(const std::vector<ExplainedKey> &keys) {
    JSON list = JSON::array();
    for (const ExplainedKey &key : keys) {
        list.push_back(
            {{"key", Visible(key.key)}, {"value", Visible(key.value)}, {"meaning", key.meaning}});
        if (!key.words.empty()) list.back()["words"] = key.words;
        if (!key.note.empty()) list.back()["note"] = key.note;
    }
    return list;
}

JSON TextsAsJSON(const std::vector<std::string> &texts) {
    JSON list = JSON::array();
    for (const std::string &text : texts) list.push_back(Visible(text));
    return list;
}

JSON OptionAsJSON(const ExplainedOption &option) {
    JSON object = {{"name", Visible(option.name)},
                   {"given", Visible(option.given)},
                   {"source", option.source},
                   {"known", option.isKnown},
                   {"meaning", Visible(option.meaning)},
                   {"keys", KeysAsJSON(option.keys)},
                   {"writes", EffectsAsJSON(option.writes)},
                   {"insteadOf", EffectsAsJSON(option.insteadOf)},
                   {"changesDocument", option.changesDocument},
                   {"notices", TextsAsJSON(option.notices)}};
    if (!option.nearest.empty()) object["nearest"] = option.nearest;
    return object;
}

}  // namespace

std::string ExplanationAsJSON(const Explanation &explanation) {
    JSON options = JSON::array();
    for (const ExplainedOption &option : explanation.options)
        options.push_back(OptionAsJSON(option));
    JSON misses = JSON::array();
    for (const NearMiss &miss : explanation.nearMisses) {
        misses.push_back({{"command", miss.command},
                          {"meaning", miss.meaning},
                          {"reason", Visible(miss.reason)}});
    }
    const JSON object = {{"plainCUPS", explanation.isPlainCUPS},
                         {"refused", explanation.isRefused},
                         {"status", explanation.status},
                         {"options", options},
                         {"tells", EffectsAsJSON(explanation.header)},
                         {"always", EffectsAsJSON(explanation.always)},
                         {"notWritten", misses},
                         {"messages", TextsAsJSON(explanation.messages)}};
    return object.dump(2) + "\n";
}
