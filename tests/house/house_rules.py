#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The house rules: maximum file and function lengths, licence headers, who may start programs or show markup, etc."""

import re
import unittest

from cpp_functions import functions
from project_files import ROOT, code_files, cpp_files, shown

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)

# Only these files start programs, with a list of arguments and never through a shell.
STARTS_PROGRAMS = {"src/platform/processes/detached_process.cpp", "src/platform/processes/child_process.cpp"}
STARTING = re.compile(r"\bQProcess::|\bQProcess\s+\w+[;({]|\bnew QProcess|\bposix_spawnp?\s*\(|\bv?fork\s*\(|"
                      r"\bexecvp?e?\s*\(|\bexecl[pe]?\s*\(|\bQDesktopServices\b")
SHELL = re.compile(r"(?<!QLocale::)\bsystem\s*\(|\bpopen\s*\(|\bwordexp\s*\(|\bstartCommand\s*\(|\bsplitCommand\s*\(|"
                   r"\bposix_spawnp\s*\(|\bexec[vl]p|startDetached\((?![^)]*,)|\bstart\(\s*u\"[^\"]* |"
                   r"\"(/bin/)?(ba|da)?sh\"")

# Untrusted text is never rendered as markup. Only the help renders markup, from the help file, and loads no other file.
# The first file shows tool tips as plain text.
MARKUP = re.compile(r"\bsetHtml\(|\binsertHtml\(|\bappendHtml\(|\bsetMarkdown\(|\binsertMarkdown\(|Qt::RichText|"
                    r"Qt::AutoText|Qt::MarkdownText|\bQTextBrowser\b|\bQErrorMessage\b|\bQWhatsThis\b|setWhatsThis\(|"
                    r"\bQStaticText\b|\bQMessageBox::(information|question|warning|critical|about)\b|\bQToolTip\b")
MAY_MARK_UP = {"src/controls/plain_tool_tip.cpp", "src/help/help_browser.cpp", "src/help/help_browser.h",
               "src/help/help_window.cpp"}
# A label created with a literal shows that text; every other label must be set to plain text.
LABEL = re.compile(r"new QLabel\b(?!\(\s*u\")")
PLAIN = "setTextFormat(Qt::PlainText)"
# The first shows a picture; the label of the second is set to plain text in help_window_tools.cpp.
PLAIN_ALL_THE_SAME = {"src/timing/timer_notice.cpp", "src/help/help_window.cpp"}
TOOL_TIP = re.compile(r"setToolTip\((?!(\w+, )?(u\"|Qt::convertFromPlainText\(|ToolTipOf\())")
# Their tool tips are fixed names from the source.
NAMES_ITS_CONTROLS = {"src/media/cd_window.cpp", "src/help/help_window_tools.cpp", "src/platform/desktop/qt_tray.cpp"}

# It kills processes at particular moments.
MAY_WAIT = {"tests/days/tst_killed_writer.cpp"}

# The program changes to its folder at the start and passes the path on. The other two files change the folder of
# processes of their own.
MAY_CHANGE_FOLDERS = {"src/core/program_folder.cpp", "src/cd_helper/disc.cpp",
                      "src/platform/processes/detached_process.cpp"}

LONGEST = {".cpp": 400, ".h": 120}
LONGEST_FUNCTION = 60  # lines, including a constructor's initialisers


def lines_of(path):
    return len(path.read_text("utf-8").splitlines())


class HouseRules(unittest.TestCase):
    def test_every_decision_is_in_the_index(self):
        folder = ROOT / "docs/decisions"
        index = (folder / "README.md").read_text("utf-8")
        pages = sorted(folder.glob("[0-9]*.md"))
        self.assertTrue(pages)
        for page in pages:
            number, title = re.match(r"# (\d+)\. (.+)", page.read_text("utf-8")).groups()
            self.assertEqual(int(number), int(page.name[:4]))
            self.assertIn(f"| [{number}]({page.name}) | {title} |", index)

    def test_includes_name_files_that_exist_from_a_root(self):
        roots = [ROOT / "src", ROOT / "tests", ROOT / "tools", ROOT / "bench"]
        wrong = [f"{shown(path)} includes {included}"
                 for path in cpp_files() for included in INCLUDE.findall(path.read_text("utf-8"))
                 if not included.endswith(".moc") and not any((root / included).exists() for root in roots)]
        self.assertEqual(wrong, [])

    def test_only_the_platform_reads_clocks(self):
        clock = re.compile(r"currentDateTime|QDate::currentDate|QTime::currentTime|clock_gettime|QElapsedTimer|QTimer\b")
        wrong = [shown(path) for path in cpp_files(("src",))
                 if not shown(path).startswith("src/platform/") and clock.search(path.read_text("utf-8"))]
        self.assertEqual(wrong, [])

    def test_each_folder_has_its_namespace(self):
        wrong = []
        for path in cpp_files(("src",)):
            folder = shown(path).split("/")[1]
            own = "tickwell" if folder == "core" else f"tickwell::{folder}"
            # Before it, other folders' classes may be declared.
            opened = re.findall(r"^namespace ([\w:]+) \{$", path.read_text("utf-8"), re.MULTILINE)
            if opened and opened[-1] != own:
                wrong.append(f"{shown(path)}: {opened[-1]}")
            used = re.findall(r"^\s*using namespace (tickwell[\w:]*);", path.read_text("utf-8"), re.MULTILINE)
            wrong += [f"{shown(path)}: {name}" for name in used if name not in ("tickwell", own)]
        self.assertEqual(wrong, [])

    def test_nobody_asks_for_the_current_folder(self):
        current = re.compile(r"QDir::current|QDir::setCurrent|\bgetcwd\b|\bchdir\b|std::filesystem::current_path")
        wrong = [shown(path) for path in cpp_files(("src",))
                 if shown(path) not in MAY_CHANGE_FOLDERS and current.search(path.read_text("utf-8"))]
        self.assertEqual(wrong, [])

    def test_every_file_names_its_licence(self):
        files = code_files(".cpp", ".h", ".py", ".cmake", ".sql") + code_files(".txt", folders=("src", "tests", "tools"))
        wrong = []
        for path in files:
            if path.suffix == ".txt" and path.name != "CMakeLists.txt":
                continue
            head = "".join(path.read_text("utf-8").splitlines(keepends=True)[:2])
            if "SPDX-License-Identifier: GPL-3.0-or-later" not in head:
                wrong.append(shown(path))
        self.assertEqual(wrong, [])

    def test_no_file_is_too_long(self):
        wrong = [f"{shown(path)}: {lines_of(path)} lines"
                 for path in cpp_files() if lines_of(path) > LONGEST[path.suffix]]
        self.assertEqual(wrong, [])

    def test_no_function_is_too_long(self):
        wrong = [f"{shown(path)}:{line}: {lines} lines" for path in cpp_files()
                 for line, lines in functions(path.read_text("utf-8")) if lines > LONGEST_FUNCTION]
        self.assertEqual(wrong, [])

    def test_the_length_of_a_function_is_measured(self):
        body = "    f(u\"}\", '{', 1'000, [&] { g(); });  // }\n" * 58 + "}\n"
        for begins, line in (("void F() {\n", 1), ("void TstF::F_data() {\n", 1), ("auto F() const -> int {\n", 1),
                             ("F::F(int a)\n    : m_a{a},\n      m_b(a) {\n", 1),
                             ("struct A {\nprivate:\n    static int F(G g = {}) {\n", 3),
                             ("namespace {\n\ntemplate <typename A>\nA F() {\n", 3)):
            with self.subTest(begins):
                text = begins + body
                self.assertEqual(functions(text), [(line, text.count("\n") - line + 1)])
        for other in ("struct A {\n", "namespace a {\n", "enum class A {\n", "const std::array kAll{\n"):
            with self.subTest(other):
                self.assertEqual(functions(other + "    a,\n" * 70 + "};\n"), [])

    def test_q_object_is_on_a_line_of_its_own(self):
        wrong = [shown(path) for path in cpp_files()
                 for line in path.read_text("utf-8").splitlines()
                 if re.search(r"\bQ_OBJECT\b", line) and line.strip() != "Q_OBJECT"]
        self.assertEqual(wrong, [])

    def test_programs_are_started_by_a_list_of_words(self):
        wrong = []
        for path in cpp_files(("src", "tools")):
            text = path.read_text("utf-8")
            wrong += [f"{shown(path)}: {found[0]}" for found in SHELL.finditer(text)]
            if shown(path) not in STARTS_PROGRAMS:
                wrong += [f"{shown(path)}: {found[0]}" for found in STARTING.finditer(text)]
        self.assertEqual(wrong, [])

    def test_a_shell_would_be_detected(self):
        for code in ('system("ls")', 'std::system(text)', 'popen(a, "r")', 'QProcess::startDetached(line)',
                     'process.start(u"ls -l"_s)', 'Start(u"/bin/sh", words)', 'execvp(file, words)'):
            with self.subTest(code):
                self.assertTrue(SHELL.search(code))
        for code in ('QProcess process;', 'QProcess::execute(a, b)', 'fork()', 'execv(file, words)'):
            with self.subTest(code):
                self.assertTrue(STARTING.search(code))
        for code in ('QLocale::system().name()', 'QProcess::startDetached(file, words, folder)', 'm_child.Start(a, b)'):
            with self.subTest(code):
                self.assertIsNone(SHELL.search(code))

    def test_text_from_outside_is_plain(self):
        wrong = []
        for path in cpp_files(("src",)):
            text = path.read_text("utf-8")
            if shown(path) not in MAY_MARK_UP:
                wrong += [f"{shown(path)}: {found[0]}" for found in MARKUP.finditer(text)]
            if shown(path) not in PLAIN_ALL_THE_SAME and len(LABEL.findall(text)) > text.count(PLAIN):
                wrong.append(f"{shown(path)}: a label that is not told to be plain")
            if shown(path) not in NAMES_ITS_CONTROLS:
                wrong += [f"{shown(path)}: {found[0]}" for found in TOOL_TIP.finditer(text)]
        self.assertEqual(wrong, [])

    def test_nothing_uses_the_network(self):
        network = re.compile(r"QTcp|QUdp|QSsl|QNetworkAccess|QNetworkRequest|QHostAddress|\bAF_INET|\bgetaddrinfo\b|"
                             r"\bQWebSocket|\bQDnsLookup\b")
        wrong = [f"{shown(path)}: {found[0]}" for path in cpp_files(("src", "tools"))
                 for found in network.finditer(path.read_text("utf-8"))]
        self.assertEqual(wrong, [])

    def test_no_test_uses_a_child_that_may_be_missing(self):
        unchecked = re.compile(r"\bfindChild<[^;]*?>\([^;()]*(?:\([^;()]*\)[^;()]*)*\)->|\*[\w.>-]+findChild<")
        wrong = [f"{shown(path)}: {found[0]}" for path in cpp_files(("tests", "bench"))
                 for found in unchecked.finditer(path.read_text("utf-8"))]
        self.assertEqual(wrong, [])
        self.assertTrue(unchecked.search('form->findChild<QAction*>(u"a(%1)"_s.arg(i))->trigger();'))
        self.assertTrue(unchecked.search('return *form.findChild<Control*>(name);'))

    def test_no_test_waits_for_the_clock(self):
        sleeping = re.compile(r"qSleep|qWait\(|sleep_for|usleep\(")
        wrong = [shown(path) for path in cpp_files(("tests",))
                 if shown(path) not in MAY_WAIT and sleeping.search(path.read_text("utf-8"))]
        self.assertEqual(wrong, [])


if __name__ == "__main__":
    unittest.main()
