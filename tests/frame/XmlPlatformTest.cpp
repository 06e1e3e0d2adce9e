#include <gtest/gtest.h>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/RuntimeException.hpp>
#include <xercesc/util/XMLString.hpp>

#include "QsUtils/expression/ExpressionAnalyse.h"
#include "QsUtils/frame/CQsUtilsApp.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/text/CString.h"
#include "QsUtils/xml/XmlPlatform.h"

namespace {

bool IsXmlRunning() {
    return xercesc::XMLPlatformUtils::fgMemoryManager != nullptr;
}

[[noreturn]] void FailToStart() {
    throw xercesc::RuntimeException(__FILE__, __LINE__, xercesc::XMLExcepts::File_CouldNotGetBasePathName,
                                    xercesc::XMLPlatformUtils::fgMemoryManager);
}

std::string MessageOfFailure() {
    try {
        FailToStart();
    } catch (const xercesc::XMLException& error) {
        char* message = xercesc::XMLString::transcode(error.getMessage());
        std::string text = message;
        xercesc::XMLString::release(&message);
        return text;
    }
}

TEST(XmlPlatform, RunsFromTheLoadOfTheModuleOn) {
    EXPECT_TRUE(IsXmlRunning());
}

TEST(XmlPlatform, AFailureToStartIsShownAndGoesNoFurther) {
    const std::string message = MessageOfFailure();
    ASSERT_FALSE(message.empty());
    testing::internal::CaptureStderr();
    EXPECT_NO_THROW(QsXml::StartXmlPlatform(FailToStart));
    EXPECT_NE(testing::internal::GetCapturedStderr().find(message), std::string::npos);
}

TEST(XmlPlatform, AStartThatSucceedsShowsNothing) {
    testing::internal::CaptureStderr();
    QsXml::StartXmlPlatform();
    EXPECT_TRUE(IsXmlRunning());
    QsXml::EndXmlPlatform();
    EXPECT_TRUE(IsXmlRunning()) << "the platform counts its starts, and the module's own still stands";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// The module object, driven by hand: a whole life within the process.
TEST(ModuleObject, EndsItsServicesAndXmlAndCanBeginAgain) {
    CQsUtilsApp app;
    IQsUtils::SetSoftVersion(u"V1");
    EXPECT_NE(ExpressionAnalyse::GetExpressionAnalyser(), nullptr);
    EXPECT_EQ(app.ExitInstance(), 0);
    EXPECT_FALSE(IsXmlRunning());
    EXPECT_EQ(IQsUtils::GetSoftVersion(), u"V1") << "static objects outlive the end sequence";
    EXPECT_EQ(app.ExitInstance(), 0) << "nothing is left to end";
    EXPECT_TRUE(app.InitInstance());
    EXPECT_TRUE(IsXmlRunning());
    EXPECT_NE(ExpressionAnalyse::GetExpressionAnalyser(), nullptr) << "a new one";
    IQsUtils::SetSoftVersion(CString());
}

}  // namespace
