"""The faults that are planted, and the order in which they are drawn."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

from copied_tree import CopiedTree  # noqa: E402
from equivalents import read_equivalents  # noqa: E402
from faults import faults_of  # noqa: E402
from mutate import Planted, shuffled  # noqa: E402
from tests_of import levels_of  # noqa: E402


def body(statements):
    return "namespace room {\nint F(int a, int b) {\n" + statements + "\n}\n}\n"


def faults_in(text, **options):
    """Each fault as (kind, what it turns, into what)."""
    return [(each.kind, text[each.start:each.end], each.new) for each in faults_of(text, **options)]


def faults_of_body(statements, **options):
    return faults_in(body(statements), **options)


class SingleFaults(unittest.TestCase):
    def test_a_comparison_is_shifted(self):
        self.assertEqual(faults_of_body("return a < b;"),
                         [("result", "return a < b;", "return {};"), ("comparison", "<", "<=")])
        self.assertIn(("comparison", "==", "!="), faults_of_body("return a == b;"))
        self.assertIn(("comparison", ">=", ">"), faults_of_body("return a >= b;"))

    def test_the_brackets_of_a_template_are_no_comparison(self):
        self.assertEqual(faults_of_body("std::array<std::vector<int>, 3> rows;"), [])

    def test_a_condition_is_turned(self):
        self.assertEqual(faults_of_body("if (a) ++b;"),
                         [("condition", "a", "!(a)"), ("step", "++", "--"),
                          ("removal", "++b;", "{}")])

    def test_what_a_shifted_operator_turns_is_not_turned_again(self):
        kinds = [kind for kind, _, _ in faults_of_body("if (a == b) return;\nif (!a) return;")]
        self.assertEqual(kinds, ["comparison", "negation"])

    def test_logic_is_turned(self):
        self.assertEqual(faults_of_body("while (a && b) {\n}"),
                         [("condition", "a && b", "!(a && b)"), ("logic", "&&", "||")])

    def test_a_reference_to_something_temporary_is_no_logic(self):
        self.assertEqual(faults_of_body("auto&& one = b;"), [])

    def test_arithmetic_is_turned(self):
        self.assertIn(("arithmetic", "+", "-"), faults_of_body("return a + b;"))
        self.assertIn(("sign", "-", ""), faults_of_body("return -a;"))
        self.assertIn(("arithmetic", "+=", "-="), faults_of_body("a += b;"))

    def test_texts_that_are_joined_are_not_subtracted(self):
        self.assertNotIn(("arithmetic", "+", "-"), faults_of_body('return u"a" + b;'))

    def test_a_constant_is_changed(self):
        self.assertEqual(faults_in("constexpr int kMost = 0x0F;\n"), [("number", "0x0F", "0x10")])
        self.assertEqual(faults_in("constexpr double kHalf = 0.5;\n"), [("number", "0.5", "1.5")])
        self.assertEqual(faults_in("struct A {\n  bool on = true;\n};\n"),
                         [("truth", "true", "false")])

    def test_a_row_of_a_table_is_changed(self):
        table = "constexpr std::array<Row, 2> kRows{{\n    {1, F(2)},\n    {3, u\"a\"},\n}};\n"
        self.assertEqual(faults_in(table), [("number", "1", "2"), ("number", "2", "3"),
                                            ("number", "3", "4"), ("text", 'u"a"', 'u"a~"')])

    def test_a_statement_is_removed(self):
        self.assertEqual(faults_of_body("Save(a);"), [("removal", "Save(a);", "{}")])
        self.assertEqual(faults_of_body("a = b;"), [("removal", "a = b;", "{}")])
        self.assertEqual(faults_of_body("for (int each : rows) continue;"),
                         [("removal", "continue;", "{}")])

    def test_a_statement_in_a_lambda_is_removed(self):
        self.assertEqual(faults_of_body("Catching([&] {\n  Save(a);\n});"),
                         [("removal", "Catching([&] {\n  Save(a);\n});", "{}"),
                          ("removal", "Save(a);", "{}")])

    def test_a_text_is_altered(self):
        self.assertEqual(faults_of_body('Save(u"a");'),
                         [("removal", 'Save(u"a");', "{}"), ("text", 'u"a"', 'u"a~"')])
        self.assertIn(("text", "u'a'", "u'~'"), faults_of_body("Save(u'a');"))
        self.assertIn(("text", 'R"(a "b")"', 'R"(~a "b")"'), faults_of_body('Save(R"(a "b")");'))

    def test_arguments_are_swapped(self):
        self.assertEqual(faults_of_body("Save(a, Least<int, 3>(b), a);")[1:],
                         [("arguments", "a, Least<int, 3>(b)", "Least<int, 3>(b), a"),
                          ("arguments", "Least<int, 3>(b), a", "a, Least<int, 3>(b)")])

    def test_a_choice_is_swapped(self):
        self.assertEqual(faults_of_body("Save(a ? b : F(c));")[1:], [("choice", "b : F(c)", "F(c) : b")])

    def test_a_result_is_lost(self):
        self.assertEqual(faults_of_body("return F(a);"), [("result", "return F(a);", "return {};")])
        self.assertEqual(faults_of_body("return {};\nreturn a;\nreturn std::nullopt;"), [])

    def test_a_function_without_a_result_returns_at_once(self):
        self.assertEqual(faults_in("void F() {\n  A();\n  B();\n}\n"),
                         [("return", "", " return;"), ("removal", "A();", "{}"),
                          ("removal", "B();", "{}")])


class LeftAlone(unittest.TestCase):
    def test_comments_and_includes(self):
        self.assertEqual(faults_in('#include "a/b.h"\n#define A 1 + 2\n// a + 1\n/* F(1); */\n'), [])
        self.assertEqual(faults_of_body("// Save(1, 2);\n/* if (a == b) */"), [])

    def test_declarations(self):
        self.assertEqual(faults_in("void F(int a = 1);\nusing A = std::array<int, 3>;\n"), [])
        self.assertEqual(faults_in("class A {\n  A(int a, int b);\n  virtual void F() = 0;\n"
                                   "  int rows_[3];\n};\n"), [])
        self.assertEqual(faults_of_body("const Text& all = a;\nstd::vector<int> rows(a);"), [])

    def test_assertions(self):
        self.assertEqual(faults_of_body('static_assert(sizeof(int) == 4, "four bytes");'), [])
        self.assertEqual(faults_of_body('assert(a > 0 && "more than none");'), [])

    def test_texts_if_told_so(self):
        self.assertEqual(faults_of_body('Save(u"a", u\'b\');', with_texts=False),
                         [("removal", 'Save(u"a", u\'b\');', "{}"),
                          ("arguments", 'u"a", u\'b\'', 'u\'b\', u"a"')])

    def test_what_looks_like_code_in_a_text(self):
        self.assertEqual([kind for kind, _, _ in faults_of_body('Save("a; F(1) == b // \\" c");')],
                         ["removal", "text"])


class Order(unittest.TestCase):
    TEXT = body("if (a < b) Save(a + 1);\nreturn Less(a, b);")

    def drawn(self, seed):
        planted = [Planted("room/f.cpp", self.TEXT, fault) for fault in faults_of(self.TEXT)]
        return [fault.mark for fault in shuffled(planted, seed)]

    def test_a_seed_draws_the_same_order(self):
        self.assertEqual(self.drawn(7), self.drawn(7))
        self.assertNotEqual(self.drawn(7), self.drawn(8))
        self.assertEqual(sorted(self.drawn(7)), sorted(self.drawn(8)))

    def test_the_order_is_the_same_in_every_process(self):
        command = [sys.executable, str(HERE / "mutate.py"), str(HERE.parent.parent / "core"),
                   "--list", "--seed", "7"]
        once, again = (subprocess.run(command, capture_output=True, check=True).stdout
                       for _ in range(2))
        self.assertEqual(once, again)
        self.assertGreater(once.count(b"\n"), 300)

    def test_a_fault_tells_its_lines(self):
        fault = next(each for each in faults_of(self.TEXT) if each.kind == "comparison")
        planted = Planted("room/f.cpp", self.TEXT, fault)
        self.assertEqual(planted.place(), "room/f.cpp:3 (comparison)")
        self.assertEqual(planted.before, "if (a < b) Save(a + 1);")
        self.assertEqual(planted.after, "if (a <= b) Save(a + 1);")


class Equivalents(unittest.TestCase):
    def read(self, text):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "equivalent.txt"
            path.write_text(text, "utf-8")
            return read_equivalents(path)

    def test_a_fault_is_named_by_its_lines(self):
        named = self.read("# a comment\nroom/f.cpp: both are the same\n- if (a < b) Save(a + 1);\n"
                          "+ if (a <= b) Save(a + 1);\n")
        fault = next(each for each in faults_of(Order.TEXT) if each.kind == "comparison")
        self.assertTrue(Planted("room/f.cpp", Order.TEXT, fault).is_in(named))
        self.assertFalse(Planted("room/g.cpp", Order.TEXT, fault).is_in(named))

    def test_a_reason_is_asked_for(self):
        with self.assertRaises(ValueError):
            self.read("room/f.cpp\n- a\n+ b\n")

    def test_those_of_the_tree_can_be_read(self):
        read_equivalents(HERE / "equivalent.txt")


class FakeTest:
    def __init__(self, folder, name, *includes):
        self.folder, self.name, self.target = folder, name, f"{folder}_{name}"
        self.includes = set(includes)


class LikelyTests(unittest.TestCase):
    def levels(self, tests, path):
        with tempfile.TemporaryDirectory() as folder:
            return [(level, [test.name for test in found])
                    for level, found in levels_of(Path(folder), tests, path)]

    def test_the_likeliest_come_first(self):
        tests = [FakeTest("windows", "boxes_test"), FakeTest("unit", "text_test", "platform/text/text.h"),
                 FakeTest("unit", "marking_test", "workbench/marking.h"),
                 FakeTest("windows", "guide_test", "workbench/marking.h"),
                 FakeTest("book", "stems_test", "workbench/stems.h")]
        self.assertEqual(self.levels(tests, "workbench/marking.cpp"),
                         [("name", ["marking_test"]), ("header", ["guide_test"]),
                          ("pictures", ["sample_session"]), ("room", ["stems_test"]),
                          ("folder", ["text_test"]),
                          ("all", ["boxes_test"])])

    def test_a_word_in_the_middle_of_another_name_says_nothing(self):
        tests = [FakeTest("windows", "format_window_keys_test"), FakeTest("viewer", "window_test"),
                 FakeTest("windows", "platform_window_test")]
        self.assertEqual(self.levels(tests, "platform/qt/window.cpp")[0],
                         ("name", ["window_test", "platform_window_test"]))

    def test_a_file_without_a_test_of_its_name_takes_those_of_its_window(self):
        tests = [FakeTest("windows", "format_window_keys_test"), FakeTest("unit", "text_test")]
        self.assertEqual(self.levels(tests, "workbench/format_window_entries.cpp"),
                         [("name", ["format_window_keys_test"]), ("pictures", ["sample_session"]),
                          ("all", ["text_test"])])

    def test_the_first_word_alone_is_no_name(self):
        tests = [FakeTest("viewer", "text_file_test"),
                 FakeTest("unit", "rtf_read_test", "platform/rtf/text_reader.h")]
        self.assertEqual(self.levels(tests, "platform/rtf/text_reader.h"),
                         [("header", ["rtf_read_test"]), ("all", ["text_file_test"])])

    def test_what_no_window_shows_is_in_no_picture(self):
        tests = [FakeTest("unit", "text_test"), FakeTest("windows", "boxes_test")]
        self.assertEqual(self.levels(tests, "platform/text/text.cpp"),
                         [("name", ["text_test"]), ("all", ["boxes_test"])])


class TheCopy(unittest.TestCase):
    def test_faults_are_planted_in_the_copy_and_taken_back(self):
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder) / "tree"
            (root / "build").mkdir(parents=True)
            (root / "a.cpp").write_text("int a = 1;\n", "utf-8")
            copy = CopiedTree(root, root / "build" / "copy", 1)
            copy.renew()
            unchanged = (copy.place / "a.cpp").stat().st_mtime_ns
            copy.renew()
            self.assertEqual((copy.place / "a.cpp").stat().st_mtime_ns, unchanged)
            copy.plant("a.cpp", "int a = 2;\n")
            self.assertEqual((root / "a.cpp").read_text("utf-8"), "int a = 1;\n")
            copy.restore("a.cpp")
            self.assertEqual((copy.place / "a.cpp").read_text("utf-8"), "int a = 1;\n")
            (root / "a.cpp").unlink()
            copy.renew()
            self.assertFalse((copy.place / "a.cpp").exists())


if __name__ == "__main__":
    unittest.main()
