// Parsing and calculating quantity formulas, beside muParser and beside a plain transcription of the rules.
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <muParser.h>

#include "QsUtils/QsUtils.h"

#include "tests/expression/PlainAnalyser.h"

namespace {

using ExpressionAnalyse::GetExpressionAnalyser;
using ExpressionAnalyse::IExpressionNode;

// What a bill of quantities holds: areas less openings, storeys, percentages.
const char* const TypicalFormulas[] = {
    "12.6*3.3+8.4*3.3+2.1*0.9",
    "(45.24+0.24)*(15.84+0.24)*0.65",
    "3.6*3.0*4+1.5*1.8*12+0.9*2.1*6+2.4*2.7",
    "(12.5+8.4)+2.95+0.24+3.6+4.2+1.8+0.37",
    "128.5*0.12+96.4*0.1+54.2*0.08+1.5%",
    "[3.9+4.5+2.7]*{6.6+0.24}+18.2/2+7.35*3",
};

std::unique_ptr<IExpressionNode> Parse(const CString& formula) {
    std::int32_t error = 0;
    return std::unique_ptr<IExpressionNode>(GetExpressionAnalyser()->AnalyseExpression(formula, &error));
}

void ParseCalcOurs(benchmark::State& state) {
    std::vector<CString> formulas;
    for (const char* formula : TypicalFormulas)
        formulas.emplace_back(formula);
    for (auto _ : state)
        for (const CString& formula : formulas)
            benchmark::DoNotOptimize(Parse(formula)->CalcValue());
}
BENCHMARK(ParseCalcOurs)->Name("Expression/ParseAndCalculate/ours");

void ParseCalcPlain(benchmark::State& state) {
    std::vector<std::u16string> formulas;
    for (const char* formula : TypicalFormulas)
        formulas.emplace_back(formula, formula + std::char_traits<char>::length(formula));
    for (auto _ : state) {
        for (const std::u16string& formula : formulas) {
            int error = 0;
            const PlainAnalyser::Tree tree = PlainAnalyser::Analyse(formula, error);
            benchmark::DoNotOptimize(PlainAnalyser::Calculate(tree.get()));
        }
    }
}
BENCHMARK(ParseCalcPlain)->Name("Expression/ParseAndCalculate/plain");

/// muParser knows one kind of bracket and no "%".
std::string ForMuParser(std::string formula) {
    for (char& c : formula)
        c = c == '[' || c == '{' ? '(' : c == ']' || c == '}' ? ')' : c;
    if (const std::size_t percent = formula.find('%'); percent != std::string::npos)
        formula.erase(percent, 1);
    return formula;
}

void ParseCalcMuParser(benchmark::State& state) {
    std::vector<std::string> formulas;
    for (const char* formula : TypicalFormulas)
        formulas.push_back(ForMuParser(formula));
    mu::Parser parser;
    for (auto _ : state) {
        for (const std::string& formula : formulas) {
            parser.SetExpr(formula);
            benchmark::DoNotOptimize(parser.Eval());
        }
    }
}
BENCHMARK(ParseCalcMuParser)->Name("Expression/ParseAndCalculate/muparser");

constexpr char BoundFormula[] = "(45.24+0.24)*(x+0.24)*0.65+3.6*3.0*4+1.5";
const char* const BoundValues[] = {"15.84", "7.2", "128.355", "0.6"};

IExpressionNode* FindVariable(IExpressionNode* root) {
    std::vector<IExpressionNode*> pending{root};
    while (!pending.empty()) {
        IExpressionNode* const node = pending.back();
        pending.pop_back();
        if (node == nullptr)
            continue;
        if (node->IsLeaf() && !node->IsNumber())
            return node;
        pending.push_back(node->GetLeftNode());
        pending.push_back(node->GetRightNode());
    }
    return nullptr;
}

void RebindOurs(benchmark::State& state) {
    const auto root = Parse(CString(BoundFormula));
    IExpressionNode* const variable = FindVariable(root.get());
    const std::vector<CString> values = {CString(BoundValues[0]), CString(BoundValues[1]),
                                         CString(BoundValues[2]), CString(BoundValues[3])};
    for (auto _ : state) {
        for (const CString& value : values) {
            variable->SetLeafText(value);
            benchmark::DoNotOptimize(root->CalcValue());
        }
    }
}
BENCHMARK(RebindOurs)->Name("Expression/Recalculate/ours");

void RebindMuParser(benchmark::State& state) {
    mu::Parser parser;
    double x = 0;
    parser.DefineVar("x", &x);
    parser.SetExpr(BoundFormula);
    for (auto _ : state) {
        for (const char* value : BoundValues) {
            x = std::strtod(value, nullptr);
            benchmark::DoNotOptimize(parser.Eval());
        }
    }
}
BENCHMARK(RebindMuParser)->Name("Expression/Recalculate/muparser");

std::u16string Sum(std::size_t terms) {
    std::u16string formula = u"1.5";
    for (std::size_t i = 1; i < terms; ++i)
        formula += u"+2.25";
    return formula;
}

std::u16string Product(std::size_t terms) {
    std::u16string formula = u"1.5";
    for (std::size_t i = 1; i < terms; ++i)
        formula += u"*1.01";
    return formula;
}

std::u16string Groups(std::size_t terms) {
    std::u16string formula = u"(1.5+2)";
    for (std::size_t i = 2; i < terms; i += 2)
        formula += i % 4 == 0 ? u"+(1.5+2)" : u"*[3-1]";
    return formula;
}

std::u16string NestedLeft(std::size_t terms) {
    std::u16string formula(terms - 1, u'(');
    formula += u"1";
    for (std::size_t i = 1; i < terms; ++i)
        formula += u"+2.5)";
    return formula;
}

std::u16string NestedRight(std::size_t terms) {
    std::u16string formula;
    for (std::size_t i = 1; i < terms; ++i)
        formula += u"(2.5+";
    return formula + u"1" + std::u16string(terms - 1, u')');
}

std::u16string Functions(std::size_t terms) {
    std::u16string formula;
    for (std::size_t i = 1; i < terms; ++i)
        formula += u"cos";
    return formula + u"1";
}

using Make = std::u16string (*)(std::size_t);

/// Counts terms, so that the time for one in a long formula is read against that in a short one.
void Terms(benchmark::State& state, Make make, std::size_t terms) {
    const CString formula(make(terms));
    for (auto _ : state)
        benchmark::DoNotOptimize(Parse(formula)->CalcValue());
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(terms));
}

void RegisterTerms(const std::string& operation, Make make) {
    constexpr std::size_t Long = 1000000;
    constexpr std::size_t Short = 10000;
    const std::string name = "Expression/" + operation;
    benchmark::RegisterBenchmark((name + "/ours").c_str(), Terms, make, Long);
    benchmark::RegisterBenchmark((name + "/short").c_str(), Terms, make, Short);
}

const bool registered = [] {
    RegisterTerms("SumTerms", Sum);
    RegisterTerms("ProductTerms", Product);
    RegisterTerms("GroupTerms", Groups);
    RegisterTerms("NestedTerms", NestedLeft);
    RegisterTerms("RightNestedTerms", NestedRight);
    RegisterTerms("FunctionTerms", Functions);
    return true;
}();

}  // namespace
