// openbudget: lists items of a budget as open for other programs, and asks what they list.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include <QsUtils/QsUtils.h>

#include "Session.h"
#include "SharedList.h"

namespace OpenBudget {
namespace {

constexpr const char* Usage =
    "usage: openbudget hold [--replace] KEY ITEM...   lists items as open until Enter is pressed\n"
    "       openbudget ask KEY ITEM...                prints 1 for each item that is open, 0 for others\n"
    "       openbudget excel                          prints the version of the installed spreadsheet\n";

enum ExitStatus { Done = 0, Refused = 1, WrongUsage = 2 };

using Texts = std::vector<std::u16string>;

int RefuseUsage() {
    std::fputs(Usage, stderr);
    return WrongUsage;
}

int Refuse(const std::string& reason) {
    std::fprintf(stderr, "openbudget: %s\n", reason.c_str());
    return Refused;
}

/// "A&B&"; each item has its "&" behind it.
std::u16string ListOf(const Texts& items) {
    std::u16string list;
    for (const std::u16string& item : items)
        list += item + u"&";
    return list;
}

std::string ObjectName(const CString& key) {
    const CString digest = IQsUtils::GetStreamMD5(key);
    return "OPEN_YS:" + std::string(digest.View().begin(), digest.View().end());
}

int Hold(Texts arguments, Session& session) {
    const bool replace = !arguments.empty() && arguments.front() == u"--replace";
    arguments.erase(arguments.begin(), arguments.begin() + (replace ? 1 : 0));
    if (arguments.size() < 2)
        return RefuseUsage();
    const std::string name = ObjectName(arguments.front());
    const Texts items(arguments.begin() + 1, arguments.end());
    for (const std::u16string& item : items) {
        if (item.find(u'&') != item.npos)
            return Refuse("an item has no \"&\"");
    }
    const std::u16string list = ListOf(items);
    if ((list.size() + 1) * sizeof(char16_t) > ListBytes)
        return Refuse("all items with an \"&\" behind each have 127 units at most");
    const SharedList object(name, list, replace);
    if (!object.Failure().empty())
        return Refuse(name + ": " + object.Failure());
    std::printf("holding %s\n", name.c_str());
    std::fflush(stdout);
    session.WaitForEnd();
    return Done;
}

int Ask(const Texts& arguments) {
    if (arguments.size() < 2)
        return RefuseUsage();
    for (std::size_t i = 1; i < arguments.size(); ++i)
        std::printf("%d\n", IQsUtils::IsYsOpen(arguments[0], arguments[i]));
    return Done;
}

int TellExcel() {
    const CString version = IQsUtils1::GetExcelInstallVersion();
    if (version.IsEmpty())
        return Refuse("no spreadsheet is installed");
    std::puts(IQsUtils::UnicodeToAnsi(version.ToWide()).c_str());
    return Done;
}

int Run(Texts arguments, Session& session) {
    if (arguments.empty())
        return RefuseUsage();
    const std::u16string command = arguments.front();
    arguments.erase(arguments.begin());
    if (command == u"hold")
        return Hold(arguments, session);
    if (command == u"ask")
        return Ask(arguments);
    return command == u"excel" && arguments.empty() ? TellExcel() : RefuseUsage();
}

}  // namespace
}  // namespace OpenBudget

int main(int argc, char** argv) {
    try {
        OpenBudget::Session session;
        return OpenBudget::Run(OpenBudget::Session::Arguments(argc, argv), session);
    } catch (const std::exception& error) {
        return OpenBudget::Refuse(error.what());
    }
}
