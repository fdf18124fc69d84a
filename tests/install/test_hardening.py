# SPDX-License-Identifier: Apache-2.0
"""How the filter that ships is hardened, read from the binary."""

import os
import platform
import re
import subprocess
import unittest

BINARY = os.environ["KVFILTER_BINARY"]


def output_of(*command):
    return subprocess.run([*command, BINARY], check=True, capture_output=True, text=True).stdout


class HardeningTest(unittest.TestCase):
    def test_addresses_are_random_and_the_tables_of_the_linker_read_only(self):
        headers = output_of("readelf", "--wide", "--file-header", "--segments", "--dynamic")
        self.assertRegex(headers, r"Type: +DYN")
        self.assertRegex(headers, r"FLAGS_1\).*\bNOW\b.*\bPIE\b")
        self.assertRegex(headers, r"GNU_RELRO ")

    def test_no_memory_is_both_writable_and_executable(self):
        segments = output_of("readelf", "--wide", "--segments")
        self.assertRegex(segments, r"GNU_STACK .* RW +0x")
        self.assertNotRegex(segments, r" RWE +0x")

    def test_buffers_are_watched(self):
        called = set(re.findall(r"UND (\w+)", output_of("readelf", "--wide", "--dyn-syms")))
        self.assertLessEqual({"__stack_chk_fail", "__snprintf_chk", "__memcpy_chk"}, called)

    @unittest.skipIf(platform.machine() != "x86_64", "the instructions are those of x86-64")
    def test_the_stack_is_touched_page_by_page_and_jumps_land_at_marks(self):
        code = output_of("objdump", "--disassemble", "--no-show-raw-insn")
        probes = re.findall(r"sub +\$0x1000,%rsp\n.*\bor[a-z]? +\$0x0,\(%rsp\)", code)
        self.assertGreater(len(probes), 0)
        self.assertGreater(code.count("endbr64"), 500)


if __name__ == "__main__":
    unittest.main()
