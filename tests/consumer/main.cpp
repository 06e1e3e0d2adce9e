#include <cstdint>
#include <cstdio>
#include <exception>
#include <memory>

#include <QsUtils/QsUtils.h>

namespace {

template <typename Type>
bool IsCaughtAs() {
    try {
        static_cast<void>(CString(u"abc").GetAt(4));
    } catch (const Type&) {
        return true;
    } catch (...) {
    }
    return false;
}

}  // namespace

int main() {
    std::int32_t error = 0;
    const std::unique_ptr<ExpressionAnalyse::IExpressionNode> formula(
        ExpressionAnalyse::GetExpressionAnalyser()->AnalyseExpression(u"12.5*(2+4)", &error));
    if (error != 0 || formula == nullptr || formula->CalcValue() != 75)
        return 1;
    if (!IsCaughtAs<CAtlException>() || !IsCaughtAs<std::exception>())
        return 2;
    const CString amount = IQsUtils::NumToRMBStr(12.34);
    std::puts(std::string(reinterpret_cast<const char*>(ToNativePath(amount).u8string().c_str())).c_str());
    return amount == L"壹拾贰元叁角肆分" ? 0 : 3;
}
