// The host of the tests' installations: does what its arguments say, and writes each answer on a line of its
// own. Arguments and answers are escaped.
//   code NAME      the code of a major
//   major CODE     the major of a code
//   majors FIRST   all names of majors, appended to an array that holds FIRST, joined by "|"
//   decimals UNIT  the decimals of a unit
//   init           the folder in which file dialogs start, without the program's own folder in front
//   write NAME T   writes a file beside the program, its bytes being the units of T; no answer
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <QsUtils/QsUtils.h>

#include "tests/support/Escapes.h"

namespace {

class Arguments {
public:
    Arguments(int count, char** texts) : m_next(texts + 1), m_end(texts + count) {}

    bool HasNext() const { return m_next != m_end; }
    CString Next() { return HasNext() ? CString(Unescaped(*m_next++)) : CString(); }

private:
    char** m_next;
    char** m_end;
};

void Answer(const CString& text) {
    std::puts(Escaped(text.View()).c_str());
}

CString CodeOf(const CString& name) {
    CString code = u"overwritten";
    IQsUtils::GetMajorCodeByName(name, code);
    return code;
}

CString MajorOf(const CString& code) {
    CString name = u"overwritten";
    IQsUtils::GetMajorByCode(code, name);
    return name;
}

CString AllMajors(const CString& first) {
    CStringArray names;
    names.Add(first);
    IQsUtils::GetAllMajorName(names);
    CString joined;
    for (const CString& name : names)
        joined += joined.IsEmpty() ? name : u"|" + name;
    return joined;
}

CString InitPath(const std::filesystem::path& program) {
    CString path = IQsUtils::GetInitPath();
    const CString folder = FromNativePath(std::filesystem::absolute(program).parent_path()) + u'\\';
    return path.Left(folder.GetLength()) == folder ? u"beside: " + path.Mid(folder.GetLength()) : path;
}

void WriteBeside(const std::filesystem::path& program, const CString& name, const CString& units) {
    std::string bytes;
    for (const char16_t unit : units.View())
        bytes += static_cast<char>(unit);
    std::ofstream(program.parent_path() / ToNativePath(name), std::ios::binary) << bytes;
}

bool Do(const CString& command, const std::filesystem::path& program, Arguments& arguments) {
    if (command == u"code") {
        Answer(CodeOf(arguments.Next()));
    } else if (command == u"major") {
        Answer(MajorOf(arguments.Next()));
    } else if (command == u"majors") {
        Answer(AllMajors(arguments.Next()));
    } else if (command == u"decimals") {
        Answer(IQsUtils::DoubleToCString(IQsUtils1::GetUnitMantissa(arguments.Next()), 0, false));
    } else if (command == u"init") {
        Answer(InitPath(program));
    } else if (command == u"write") {
        const CString name = arguments.Next();
        WriteBeside(program, name, arguments.Next());
    } else {
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        Arguments arguments(argc, argv);
        while (arguments.HasNext()) {
            if (!Do(arguments.Next(), argv[0], arguments))
                return 2;
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
