"""Tests of scripts/check-links: trees of documents in a temporary folder, and what is said of them."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK_LINKS = Path(__file__).resolve().parent.parent.parent / "scripts" / "check-links"


def check(files):
    """The status and the lines for a tree of these files, texts by relative path."""
    with tempfile.TemporaryDirectory() as root:
        for name, text in files.items():
            path = Path(root, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        run = subprocess.run([sys.executable, CHECK_LINKS, root], stdout=subprocess.PIPE, text=True, check=False)
        return run.returncode, run.stdout.splitlines()


class CheckLinksTest(unittest.TestCase):
    def assert_good(self, files):
        self.assertEqual(check(files), (0, []))

    def assert_bad(self, files, *problems):
        self.assertEqual(check(files), (1, list(problems)))

    def test_links_that_lead_somewhere(self):
        self.assert_good({
            "a.md": "# A\n[b](docs/b.md) [folder](docs) ![image](docs/i.png \"title\") [own](#a)\n<a href='docs/b.md'>b</a>",
            "docs/b.md": "[up](../a.md#a) [x](<i.png>) [reference][r]\n\n[r]: ../a.md\n",
            "docs/i.png": ""})

    def test_missing_files(self):
        self.assert_bad({"a.md": "one\n[b](b.md) ![i](i.png)\n"},
                        "a.md:2: b.md: no such file", "a.md:2: i.png: no such file")
        self.assert_bad({"docs/a.md": "<img alt='' src=\"i.png\">\n"}, "docs/a.md:1: i.png: no such file")
        self.assert_bad({"a.md": "[r]: b.md\n"}, "a.md:1: b.md: no such file")

    def test_two_links_in_brackets_of_an_image(self):
        self.assert_bad({"a.md": "[![i](i.png)](b.md)\n"}, "a.md:1: i.png: no such file", "a.md:1: b.md: no such file")

    def test_missing_headings(self):
        self.assert_bad({"a.md": "# A\n[x](#b) [y](b.md#c) [z](b.md#b)\n", "b.md": "B\n=\n"},
                        "a.md:2: #b: no such heading", "a.md:2: b.md#c: no such heading")

    def test_anchors_of_headings(self):
        self.assert_good({"a.md": "# What's `up`, [doc](a.md)? #\n## Twice\n## Twice\n### 一、清单 (1)\n<a id=\"own\"></a>\n"
                                  "[1](#whats-up-doc) [2](#twice) [3](#twice-1) [4](#一清单-1) [5](#own)\n"
                                  "[6](#%E4%B8%80%E6%B8%85%E5%8D%95-1)\n"})
        self.assert_bad({"a.md": "# Twice\n# Twice\n[3](#twice-2)\n"}, "a.md:3: #twice-2: no such heading")

    def test_names_know_case(self):
        self.assert_bad({"a.md": "[b](B.md) [c](Docs/c.md)\n", "b.md": "", "docs/c.md": ""},
                        "a.md:1: B.md: no such file", "a.md:1: Docs/c.md: no such file")

    def test_out_of_the_tree(self):
        self.assert_bad({"a.md": "[x](../b.md) [y](/etc/hosts) [z](docs\\b.md)\n", "docs/b.md": ""},
                        "a.md:1: ../b.md: leads out of the repository",
                        "a.md:1: /etc/hosts: not a relative path with slashes",
                        "a.md:1: docs\\b.md: not a relative path with slashes")

    def test_references_without_a_definition(self):
        self.assert_bad({"a.md": "[x][y] [Z][]\n\n[z]: a.md\n"}, "a.md:1: [y]: no such reference")

    def test_code_has_no_links(self):
        self.assert_good({"a.md": "`[x](b.md)` ``[x](`b.md)``\n```cpp\na[i](b.md);\n# Heading\n```\n~~~\n[x](c.md)\n~~~\n"})
        self.assert_bad({"a.md": "```\n# A\n```\n[x](#a)\n"}, "a.md:4: #a: no such heading")
        self.assert_bad({"a.md": "````\n```\n````\n[x](b.md)\n"}, "a.md:4: b.md: no such file")

    def test_the_network_is_left_alone(self):
        self.assert_good({"a.md": "[x](https://example.invalid/b.md) <https://example.invalid> [m](mailto:a@b)\n"})

    def test_blanks_and_brackets_in_names(self):
        self.assert_good({"a.md": "[x](a%20b.md) [y](<a b.md>) [z](c(1).md)\n", "a b.md": "", "c(1).md": ""})

    def test_builds_and_hidden_folders_are_passed_over(self):
        self.assert_good({"build/a.md": "[x](b.md)\n", ".hidden/a.md": "[x](b.md)\n"})


if __name__ == "__main__":
    unittest.main()
