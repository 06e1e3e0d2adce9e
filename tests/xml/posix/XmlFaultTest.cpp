// Kills, full disks, missing rights and tempting network addresses.
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xercesc/util/IOException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include "QsUtils/QsUtils.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/posix/InChild.h"

namespace {

std::unique_ptr<XMLNode> LargeTree(const std::wstring& text) {
    auto root = std::make_unique<XMLNode>();
    root->Name = L"a";
    for (int i = 0; i < 2000; ++i) {
        root->Children.push_back(new XMLNode);
        root->Children.back()->Name = L"b";
        root->Children.back()->Text = text;
    }
    return root;
}

enum SaveOutcome : int { Saved, Refused, CanNotOpen, CanNotWrite, SomethingElse };

template <typename Save>
SaveOutcome SaveOutcomeOf(Save save) {
    try {
        return save() ? Saved : Refused;
    } catch (const xercesc::IOException&) {
        return CanNotOpen;
    } catch (const xercesc::XMLPlatformUtilsException&) {
        return CanNotWrite;
    } catch (...) {
        return SomethingElse;
    }
}

class XmlFault : public ::testing::Test {
protected:
    void SetUp() override { m_folder.Write("file.xml", old); }
    std::wstring Path() const { return m_folder.Text("file.xml").ToWide(); }
    void ExpectOldFileAlone() const {
        EXPECT_EQ(m_folder.Read("file.xml"), old);
        EXPECT_EQ(m_folder.Entries(), 1);
    }
    /// Both ways of saving, one after the other.
    template <typename Prepare>
    void ExpectOutcome(SaveOutcome expected, Prepare prepare) {
        EXPECT_EQ(InChild([&] {
                      const auto tree = LargeTree(L"a text of some length");
                      prepare();
                      return SaveOutcomeOf([&] { return SaveXMLNode(tree.get(), Path(), false); });
                  }),
                  expected);
        EXPECT_EQ(InChild([&] {
                      NS_XMLACCESS::IXmlAccessTool* const tool = GetXmlAccessTool();
                      tool->LoadXmlFile(Path());
                      prepare();
                      return SaveOutcomeOf([&] { return tool->SaveXmlFile(L""); });
                  }),
                  expected);
    }

    const std::string old = "<old>" + std::string(100'000, 'x') + "</old>";
    TemporaryFolder m_folder;
};

TEST_F(XmlFault, AFullDiskLeavesTheOldFile) {
    ExpectOutcome(CanNotWrite, [] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    });
    ExpectOldFileAlone();
}

TEST_F(XmlFault, AFileOfWhichNotOneByteIsWrittenLeavesTheOldOne) {
    ExpectOutcome(CanNotWrite, [] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{0, 0};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    });
    ExpectOldFileAlone();
}

TEST_F(XmlFault, AMissingRightLeavesTheOldFile) {
    ::chmod(m_folder.File("file.xml").c_str(), 0444);
    ExpectOutcome(CanNotOpen, [] {});
    ExpectOldFileAlone();
    ::chmod(m_folder.File("file.xml").c_str(), 0644);
    if (::geteuid() == 0) {
        ::chmod(m_folder.Path().c_str(), 0755);
        ExpectOutcome(CanNotOpen, [] { static_cast<void>(::setuid(65534) == 0 || (std::abort(), false)); });
        ExpectOldFileAlone();
    }
}

TEST_F(XmlFault, TooFewDescriptorsAreAFailure) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizers look at memory through a pipe, for which there is no descriptor left";
#endif
    ExpectOutcome(CanNotOpen, [] {
        const rlimit limit{3, 3};
        ::setrlimit(RLIMIT_NOFILE, &limit);
    });
    ExpectOldFileAlone();
}

// Whenever the process is killed, the file is one of the two versions that it writes in turn, or the old one.
TEST_F(XmlFault, AKilledProcessLeavesAWholeFile) {
    const auto first = LargeTree(L"first");
    const auto second = LargeTree(L"the second, which is longer");
    ASSERT_TRUE(SaveXMLNode(first.get(), m_folder.File("first.xml").wstring(), false));
    ASSERT_TRUE(SaveXMLNode(second.get(), m_folder.File("second.xml").wstring(), false));
    const std::string wholes[] = {old, m_folder.Read("first.xml"), m_folder.Read("second.xml")};
    int written = 0;
    std::srand(1);
    for (int round = 0; round < 60; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (int i = 0;; ++i)
                SaveXMLNode((i % 2 == 0 ? first : second).get(), Path(), false);
        }
        ::usleep(static_cast<useconds_t>(std::rand() % 20'000));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        const std::string bytes = m_folder.Read("file.xml");
        ASSERT_TRUE(bytes == wholes[0] || bytes == wholes[1] || bytes == wholes[2]) << bytes.size();
        written += bytes != wholes[0] ? 1 : 0;
        const std::unique_ptr<XMLNode> root(LoadXMLNode(Path()));
        ASSERT_NE(root, nullptr);
    }
    EXPECT_GT(written, 0);
}

TEST_F(XmlFault, PipesAndDevicesAreNoFiles) {
    ASSERT_EQ(::mkfifo(m_folder.File("pipe").c_str(), 0600), 0);
    EXPECT_EQ(LoadXMLNode(m_folder.File("pipe").wstring()), nullptr) << "and nobody waits for a writer";
    EXPECT_EQ(LoadXMLNode(L"/dev/zero"), nullptr);
    EXPECT_EQ(LoadXMLNode(L"/dev/null"), nullptr);
    XMLNode root;
    root.Name = L"a";
    EXPECT_THROW(SaveXMLNode(&root, L"/dev/full", false), xercesc::XMLException);
}

TEST_F(XmlFault, NamesMayHoldWhatOtherSystemsForbid) {
    for (const char* name :
         {"a?b.xml", "http:x.xml", "file:a.xml", "a*b|<c>.xml", "a\"b.xml", "a\nb.xml", " a.xml. "}) {
        m_folder.Write(name, "<a/>");
        const std::unique_ptr<XMLNode> root(LoadXMLNode(m_folder.Text(name).ToWide()));
        ASSERT_NE(root, nullptr) << name;
        EXPECT_TRUE(SaveXMLNode(root.get(), m_folder.Text(name).ToWide(), false)) << name;
        EXPECT_NE(m_folder.Read(name), "<a/>") << name;
    }
}

TEST_F(XmlFault, NobodyIsCalled) {
    const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof(address);
    ASSERT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), length), 0);
    ASSERT_EQ(::listen(listener, 8), 0);
    ASSERT_EQ(::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length), 0);
    const std::string place = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/x";
    NS_XMLACCESS::IXmlAccessTool* const tool = GetXmlAccessTool();
    for (const std::string& document : {
             "<!DOCTYPE a SYSTEM '" + place + "'><a/>",
             "<!DOCTYPE a [<!ENTITY x SYSTEM '" + place + "'>]><a>&x;</a>",
             "<!DOCTYPE a [<!ENTITY % x SYSTEM '" + place + "'>%x;]><a/>",
             "<a xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:noNamespaceSchemaLocation='" + place +
                 "'/>",
             "<a xmlns:xi='http://www.w3.org/2001/XInclude'><xi:include href='" + place + "'/></a>",
         }) {
        m_folder.Write("file.xml", document);
        EXPECT_TRUE(tool->LoadXmlFile(Path())) << document;
        const std::unique_ptr<XMLNode> root(tool->LoadXMLNode(Path()));
        EXPECT_NE(root, nullptr) << document;
    }
    EXPECT_FALSE(tool->LoadXmlFile(std::wstring(place.begin(), place.end())));
    RemoveXmlAccessTool(tool);
    pollfd waiting{listener, POLLIN, 0};
    EXPECT_EQ(::poll(&waiting, 1, 0), 0) << "somebody has called";
    ::close(listener);
}

}  // namespace
