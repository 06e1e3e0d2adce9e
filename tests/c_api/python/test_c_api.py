"""Python as a host, by ctypes alone. The environment names the module in QSUTILS_MODULE, and in QSUTILS_SOURCE the
root of the repository."""
import contextlib
import ctypes
import io
import os
import pathlib
import random
import re
import subprocess
import tempfile
import threading
import unittest

MODULE = os.environ["QSUTILS_MODULE"]
SOURCE = pathlib.Path(os.environ["QSUTILS_SOURCE"])
OK, INVALID_ARGUMENT, OUT_OF_MEMORY, NOT_FOUND, BUFFER_TOO_SMALL, FAILED = range(6)
out = ctypes.byref
library = ctypes.CDLL(MODULE)
library.QsStatusText.restype = ctypes.c_char_p


def text(value):
    """A text as an argument: its units and their number."""
    data = value.encode("utf-16-le", "surrogatepass")
    return ctypes.create_string_buffer(data, len(data) + 2), ctypes.c_int32(len(data) // 2)


def taken(handle):
    """The text of a QsString, which is freed."""
    data, length = ctypes.c_void_p(), ctypes.c_int32()
    assert library.QsString_Units(handle, out(data), out(length)) == OK
    value = ctypes.string_at(data, 2 * length.value).decode("utf-16-le", "surrogatepass")
    library.QsString_Free(handle)
    return value


def result_of(function, *arguments):
    """The text that is the only result of a function."""
    result = ctypes.c_void_p()
    assert function(*arguments, out(result)) == OK
    return taken(result)


class TextList:
    def __init__(self, *texts):
        self.handle = ctypes.c_void_p()
        assert library.QsTextList_Create(out(self.handle)) == OK
        for each in texts:
            assert library.QsTextList_Add(self.handle, *text(each)) == OK

    def __enter__(self):
        return self

    def __exit__(self, *_):
        library.QsTextList_Free(self.handle)

    def texts(self):
        count = ctypes.c_int32()
        assert library.QsTextList_Count(self.handle, out(count)) == OK
        units, length = ctypes.c_void_p(), ctypes.c_int32()
        found = []
        for index in range(count.value):
            assert library.QsTextList_Get(self.handle, index, out(units), out(length)) == OK
            found.append(ctypes.string_at(units, 2 * length.value).decode("utf-16-le", "surrogatepass"))
        return found


class Texts(unittest.TestCase):
    def test_any_units_come_back(self):
        chance = random.Random(7)
        for _ in range(2000):
            value = "".join(chr(chance.choice((0, 0x41, 0x7816, 0xD800, 0xDC00, chance.randrange(0x10000))))
                            for _ in range(chance.randrange(10)))
            # Two lone surrogates that stand in a row are a pair to Python as well.
            value = value.encode("utf-16-le", "surrogatepass").decode("utf-16-le", "surrogatepass")
            self.assertEqual(result_of(library.QsString_Create, *text(value)), value)
            self.assertEqual(result_of(library.QsChangeSBCtoDBC, *text(value)), value)

    def test_values(self):
        self.assertEqual(result_of(library.QsNumToRMBStr, ctypes.c_double(1234.5)), "壹仟贰佰叁拾肆元伍角")
        self.assertEqual(result_of(library.QsTransIntToUpper, 105), "一百零五")
        self.assertEqual(result_of(library.QsGetStreamMD5, *text("")), "d41d8cd98f00b204e9800998ecf8427e")
        self.assertEqual(result_of(library.QsPickFileNameFromPath, *text("C:\\a\\b.tar.gz")), "b.tar")
        self.assertEqual(result_of(library.QsAnsiToUnicode, "砖墙".encode("gbk"), 4), "砖墙")

    def test_lists(self):
        with TextList("first") as pieces:
            self.assertEqual(library.QsSplit(*text("砖,墙,"), ord(","), pieces.handle), OK)
            self.assertEqual(pieces.texts(), ["first", "砖", "墙"])
            self.assertEqual(result_of(library.QsTransAryToStr, pieces.handle, *text("+")), "first+砖+墙")

    def test_errors_are_values(self):
        number = ctypes.c_int32(7)
        self.assertEqual(library.QsIsVariable(None, 3, out(number)), INVALID_ARGUMENT)
        self.assertEqual(number.value, 0)
        self.assertEqual(library.QsIsVariable(None, 0, None), INVALID_ARGUMENT)
        self.assertEqual(library.QsStatusText(NOT_FOUND), b"QS_NOT_FOUND")
        result = ctypes.c_void_p(1)
        self.assertEqual(library.QsRemoveRelativeDirectoryFromPath(*text("a\\.\\b"), out(result)), FAILED)
        self.assertIsNone(result.value)
        self.assertEqual(library.QsAllocateExtraCostData(ctypes.c_size_t(2**62), out(result)), OUT_OF_MEMORY)

    def test_buffers(self):
        handle, length = ctypes.c_void_p(), ctypes.c_int32()
        self.assertEqual(library.QsString_Create(*text("砖墙"), out(handle)), OK)
        self.assertEqual(library.QsString_Copy(handle, None, 0, out(length)), BUFFER_TOO_SMALL)
        buffer = ctypes.create_string_buffer(2 * (length.value + 1))
        self.assertEqual(library.QsString_Copy(handle, buffer, length.value + 1, out(length)), OK)
        self.assertEqual(buffer.raw.decode("utf-16-le"), "砖墙\0")
        library.QsString_Free(handle)


class Formulas(unittest.TestCase):
    def test_a_variable_is_bound(self):
        root, error, leaf = ctypes.c_void_p(), ctypes.c_int32(), ctypes.c_void_p()
        value = ctypes.c_double()
        self.assertEqual(library.QsAnalyseExpression(*text("2*H"), out(root), out(error)), OK)
        self.assertEqual(library.QsExpressionNode_GetRightNode(root, out(leaf)), OK)
        self.assertEqual(library.QsExpressionNode_SetLeafText(leaf, *text("3.2")), OK)
        self.assertEqual(library.QsExpressionNode_CalcValue(root, out(value)), OK)
        self.assertEqual(value.value, 6.4)
        library.QsExpressionNode_Free(root)


class Sorts(unittest.TestCase):
    def test_items_go_along(self):
        codes = ["1-%d" % number for number in range(40)]
        random.Random(3).shuffle(codes)
        items, units, length, item = ctypes.c_void_p(), ctypes.c_void_p(), ctypes.c_int32(), ctypes.c_void_p()
        self.assertEqual(library.QsItemList_Create(out(items)), OK)
        for code in codes:
            number = ctypes.c_void_p(int(code[2:]) + 1)
            self.assertEqual(library.QsItemList_Add(items, *text(code), number), OK)
        self.assertEqual(library.QsSortDeItemCodes(items), OK)
        for index in range(len(codes)):
            self.assertEqual(library.QsItemList_Get(items, index, out(units), out(length), out(item)), OK)
            self.assertEqual(item.value, index + 1)
        library.QsItemList_Free(items)


class Trees(unittest.TestCase):
    def test_saved_and_loaded(self):
        root, child = ctypes.c_void_p(), ctypes.c_void_p()
        is_saved = ctypes.c_int32()
        with tempfile.TemporaryDirectory() as folder:
            path = text(os.path.join(folder, "工程.xml").replace("/", "\\"))
            self.assertEqual(library.QsXmlNode_Create(*text("Project"), out(root)), OK)
            self.assertEqual(library.QsXmlNode_Create(*text("Item"), out(child)), OK)
            self.assertEqual(library.QsXmlNode_SetAttribute(child, *text("Name"), *text("砖墙")), OK)
            self.assertEqual(library.QsXmlNode_AddChild(root, child), OK)
            self.assertEqual(library.QsSaveXMLNode(root, *path, 0, out(is_saved)), OK)
            self.assertEqual(is_saved.value, 1)
            library.QsXmlNode_Free(root)
            self.assertEqual(library.QsLoadXMLNode(*path, out(root)), OK)
            self.assertEqual(library.QsXmlNode_FindChildNode(root, *text("Item"), out(child)), OK)
            self.assertEqual(result_of(library.QsXmlNode_GetAttribute, child, *text("Name")), "砖墙")
            library.QsXmlNode_Free(root)


class Installations(unittest.TestCase):
    """What lies below the working folder, which holds the sample installation."""

    @classmethod
    def setUpClass(cls):
        is_taken = ctypes.c_int32()
        assert library.QsUseInstallation(*text("installation"), out(is_taken)) == OK
        assert is_taken.value == 1

    def test_libraries(self):
        with TextList() as families:
            self.assertEqual(library.QsLibraryManager_GetLibraryFamilies(families.handle), OK)
            self.assertEqual(families.texts(), ["上海", "北京"])

    def test_extra_costs(self):
        kind = ctypes.c_int32()
        library_file, family = text("建筑子目2012.zkx"), text("北京")
        self.assertEqual(library.QsGetExtraCostCalType(*library_file, *text("超高降效"), *family, out(kind)), OK)
        self.assertEqual(kind.value, 1)


class Callbacks(unittest.TestCase):
    def test_tasks_and_their_results(self):
        told, lock = [], threading.Lock()
        context = ctypes.c_void_p(0x1234)

        def tell(*what):
            with lock:
                told.append(what)

        execute = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, ctypes.c_void_p)(
            lambda given, task: tell("runs", given) or 1)
        release = ctypes.CFUNCTYPE(None, ctypes.c_void_p)(lambda given: tell("released", given))
        success = ctypes.CFUNCTYPE(None, ctypes.c_void_p, ctypes.c_void_p, ctypes.c_int32)(
            lambda given, name, length: tell(ctypes.string_at(name, 2 * length).decode("utf-16-le"), given))
        manager, observer, task = ctypes.c_void_p(), ctypes.c_void_p(), ctypes.c_void_p()
        self.assertEqual(library.QsTaskManager_Create(0, out(manager)), OK)
        self.assertEqual(library.QsTaskObserver_Create(success, None, context, out(observer)), OK)
        self.assertEqual(library.QsTaskManager_AddTaskThreadMgrObserver(manager, observer), OK)
        self.assertEqual(
            library.QsTask_Create(None, *text("计价"), execute, None, release, context, out(task)), OK)
        self.assertEqual(library.QsTaskManager_StartTask(manager, task), OK)
        library.QsTaskManager_Free(manager)
        library.QsTaskObserver_Free(observer)
        self.assertEqual(told, [("runs", 0x1234), ("计价", 0x1234), ("released", 0x1234)])


class Documents(unittest.TestCase):
    """The examples of the documents."""

    @staticmethod
    def example(language):
        page = (SOURCE / "docs" / "c-api.md").read_text(encoding="utf-8")
        return re.search("```" + language + "\n(.*?)```", page, re.DOTALL).group(1)

    def test_python(self):
        example = self.example("python")
        expected = re.findall(r"print\(.*\)  # (.*)", example)
        self.assertEqual(len(expected), 2)
        printed = io.StringIO()
        with contextlib.redirect_stdout(printed):
            exec(example.replace("libQsUtils.so.1", MODULE), {})
        self.assertEqual(printed.getvalue().splitlines(), expected)

    def test_c(self):
        example = self.example("c")
        with tempfile.TemporaryDirectory() as folder:
            source = pathlib.Path(folder, "host.c")
            source.write_text(example, encoding="utf-8")
            program = pathlib.Path(folder, "host")
            module = pathlib.Path(MODULE)
            subprocess.run(["cc", "-std=c99", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-I" + str(SOURCE),
                            str(source), str(module), "-Wl,-rpath," + str(module.parent), "-o", str(program)],
                           check=True)
            printed = subprocess.run([str(program)], check=True, capture_output=True, text=True).stdout
        self.assertEqual(printed.strip(), re.search(r'/\* (QS_OK .*) \*/', example).group(1))


if __name__ == "__main__":
    unittest.main()
