// What the C interface costs beside the C++ functions that it comes to.
#include <cstdint>
#include <memory>

#include <QsUtils/QsUtils.h>
#include <QsUtils/c_api.h>
#include <benchmark/benchmark.h>

namespace {

constexpr char16_t FirstCode[] = u"A5-12-108";
constexpr char16_t SecondCode[] = u"A5-12-97";
constexpr char16_t Formula[] = u"12.5*(2+4)-3.6*1.02+0.24*(3.3-0.48)";
constexpr char16_t Pieces[] = u"平整场地,实心砖墙,矩形柱,有梁板,屋面卷材防水,水泥砂浆楼地面";

void CompareInC(benchmark::State& state) {
    for (auto _ : state) {
        std::int32_t order = 0;
        QsCompareDECode(FirstCode, -1, SecondCode, -1, &order);
        benchmark::DoNotOptimize(order);
    }
}
BENCHMARK(CompareInC)->Name("CApi/CompareDECode/ours");

void CompareInCpp(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(IQsUtils::CompareDECode(FirstCode, SecondCode));
}
BENCHMARK(CompareInCpp)->Name("CApi/CompareDECode/cpp");

void AmountInC(benchmark::State& state) {
    for (auto _ : state) {
        QsString* text = nullptr;
        QsNumToRMBStr(2973878.2, &text);
        const QsChar* units = nullptr;
        std::int32_t length = 0;
        QsString_Units(text, &units, &length);
        benchmark::DoNotOptimize(units);
        QsString_Free(text);
    }
}
BENCHMARK(AmountInC)->Name("CApi/NumToRMBStr/ours");

void AmountInCpp(benchmark::State& state) {
    for (auto _ : state) {
        const CString text = IQsUtils::NumToRMBStr(2973878.2);
        benchmark::DoNotOptimize(text.GetString());
    }
}
BENCHMARK(AmountInCpp)->Name("CApi/NumToRMBStr/cpp");

void CalculateInC(benchmark::State& state) {
    for (auto _ : state) {
        QsExpressionNode* root = nullptr;
        std::int32_t error = 0;
        double value = 0;
        QsAnalyseExpression(Formula, -1, &root, &error);
        QsExpressionNode_CalcValue(root, &value);
        QsExpressionNode_Free(root);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(CalculateInC)->Name("CApi/ParseAndCalculate/ours");

void CalculateInCpp(benchmark::State& state) {
    for (auto _ : state) {
        std::int32_t error = 0;
        const std::unique_ptr<ExpressionAnalyse::IExpressionNode> root(
            ExpressionAnalyse::GetExpressionAnalyser()->AnalyseExpression(Formula, &error));
        benchmark::DoNotOptimize(root->CalcValue());
    }
}
BENCHMARK(CalculateInCpp)->Name("CApi/ParseAndCalculate/cpp");

void SplitInC(benchmark::State& state) {
    QsTextList* list = nullptr;
    QsTextList_Create(&list);
    for (auto _ : state) {
        QsTextList_Clear(list);
        QsSplit(Pieces, -1, u',', list);
        std::int32_t count = 0;
        QsTextList_Count(list, &count);
        for (std::int32_t i = 0; i < count; ++i) {
            const QsChar* units = nullptr;
            std::int32_t length = 0;
            QsTextList_Get(list, i, &units, &length);
            benchmark::DoNotOptimize(units);
        }
    }
    QsTextList_Free(list);
}
BENCHMARK(SplitInC)->Name("CApi/Split/ours");

void SplitInCpp(benchmark::State& state) {
    CStringArray list;
    for (auto _ : state) {
        list.RemoveAll();
        IQsUtils::Split(Pieces, list, L',');
        for (const CString& piece : list)
            benchmark::DoNotOptimize(piece.GetString());
    }
}
BENCHMARK(SplitInCpp)->Name("CApi/Split/cpp");

}  // namespace
