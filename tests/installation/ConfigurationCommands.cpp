// Commands about configuration files:
//   take-up LIB FAMILY        whether the extra costs of a library are read
//   options LIB FAMILY        its over-height options, joined by "|"; "null" without a list
//   types LIB FAMILY          its extra cost types as "name=text", joined by "|"; "null" without a map
//   kind LIB TYPE FAMILY      how a type applies its coefficient, as a number
//   find-kept FOLDER NAME TAIL  searches below a folder beside the program, and remembers the path; the
//   answer
//                             is what stands behind the program's folder
//   fields                    the codes and numbers of the offered fields, joined by "|"
//   fields-of FILE            those of a project's file beside the program
//   add-fields FILE CODE      writes one field to a project's file beside the program: whether that was done
//   error-of FILE             why a file beside the program can't be loaded, as the XML tool tells it
//   remember SECTION VALUE    writes a value into the history; no answer
//   history SECTION           the history of an input field, joined by "|"
//   marks FOLDER MODE GROUP   the names of marks, joined by "|"; MODE is "bill" or "quota"
//   mark-map FOLDER MODE GROUP
#include <algorithm>
#include <iterator>
#include <list>
#include <map>

#include "tests/installation/ProbeCommands.h"

namespace {

using Fields = std::list<QS_ProjectOverView::stuColInfo*>;

CString Beside(const CString& name) {
    return DirectoryManager::GetCommonDirectoryManager()->GetExeDirectory() + name;
}

CString Number(int number) {
    CString text;
    text.Format(u"%d", number);
    return text;
}

void AnswerList(const std::list<CString>& texts) {
    Answer(std::vector<CString>(texts.begin(), texts.end()));
}

void AnswerMap(const std::map<CString, CString>& map) {
    std::list<CString> texts;
    for (const auto& [key, value] : map)
        texts.push_back(key + u"=" + value);
    AnswerList(texts);
}

void AnswerFields(const Fields& fields) {
    std::list<CString> texts;
    for (const QS_ProjectOverView::stuColInfo* field : fields)
        texts.push_back(field->strCode + Number(field->nIndex1));
    AnswerList(texts);
}

void Init(Arguments& arguments) {
    const CString library = arguments.Next();
    Answer(IQsUtils1::InitOverHeight(library, arguments.Next()));
}

void Options(Arguments& arguments) {
    const CString library = arguments.Next();
    const std::list<CString>* const options = IQsUtils1::GetOverHeightList(library, arguments.Next());
    if (options == nullptr)
        Answer(CString(u"null"));
    else
        AnswerList(*options);
}

void Types(Arguments& arguments) {
    const CString library = arguments.Next();
    const std::map<CString, CString>* const types =
        IQsUtils1::GetExtraCostTypeList(library, arguments.Next());
    if (types == nullptr)
        Answer(CString(u"null"));
    else
        AnswerMap(*types);
}

void Kind(Arguments& arguments) {
    const CString library = arguments.Next();
    const CString type = arguments.Next();
    Answer(Number(IQsUtils1::GetExtraCostCalType(library, type, arguments.Next())));
}

void Find(Arguments& arguments) {
    const CString folder = Beside(arguments.Next());
    const CString name = arguments.Next();
    CString path;
    IQsUtils1::FindPath(path, folder, name, arguments.Next());
    Answer(path.Mid(Beside(CString()).GetLength()));
}

void OfferedFields(Arguments&) {
    Fields fields;
    IQsUtils1::GetProjOverViewInfo(fields);
    AnswerFields(fields);
}

void ProjectFields(Arguments& arguments) {
    Fields fields;
    IQsUtils1::GetProjOverViewInfo(Beside(arguments.Next()), fields);
    AnswerFields(fields);
    for (const QS_ProjectOverView::stuColInfo* field : fields)
        delete field;
}

void AddFields(Arguments& arguments) {
    const CString file = Beside(arguments.Next());
    QS_ProjectOverView::stuColInfo field;
    field.strCode = arguments.Next();
    Answer(IQsUtils1::CreateProjOverViewInfo(file, {&field}));
}

void ErrorOf(Arguments& arguments) {
    NS_XMLACCESS::IXmlAccessTool& tool = *GetXmlAccessTool();
    tool.LoadXmlFile(Beside(arguments.Next()).ToWide());
    Answer(CString(tool.GetLastErrorText()));
}

void Remember(Arguments& arguments) {
    const CString section = arguments.Next();
    IQsUtils1::WriteHistory(section, arguments.Next());
}

void History(Arguments& arguments) {
    std::list<CString> history;
    IQsUtils1::GetHistory(arguments.Next(), history);
    AnswerList(history);
}

void Marks(Arguments& arguments) {
    const CString folder = arguments.Next();
    const bool billMode = arguments.Next() == u"bill";
    std::list<CString> names;
    IQsUtils1::GetMarkList(folder, billMode, arguments.Next(), names);
    AnswerList(names);
}

void MarkMap(Arguments& arguments) {
    const CString folder = arguments.Next();
    const bool billMode = arguments.Next() == u"bill";
    std::map<CString, CString> marks;
    IQsUtils1::GetMarkMap(folder, billMode, arguments.Next(), marks);
    AnswerMap(marks);
}

struct ConfigurationCommand {
    const char16_t* name;
    void (*run)(Arguments& arguments);
};

constexpr ConfigurationCommand ConfigurationCommands[] = {
    {u"take-up", Init},
    {u"options", Options},
    {u"types", Types},
    {u"kind", Kind},
    {u"find-kept", Find},
    {u"fields", OfferedFields},
    {u"fields-of", ProjectFields},
    {u"add-fields", AddFields},
    {u"error-of", ErrorOf},
    {u"remember", Remember},
    {u"history", History},
    {u"marks", Marks},
    {u"mark-map", MarkMap},
};

}  // namespace

bool DoConfiguration(const CString& command, Arguments& arguments) {
    const auto found = std::find_if(std::begin(ConfigurationCommands), std::end(ConfigurationCommands),
                                    [&](const ConfigurationCommand& each) { return command == each.name; });
    if (found == std::end(ConfigurationCommands))
        return false;
    found->run(arguments);
    return true;
}
