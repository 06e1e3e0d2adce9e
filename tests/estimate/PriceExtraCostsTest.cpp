// `price --extra-costs` in the sample's installation, as a process of its own: an installation is named once
// in the life of the library.
#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "ArgumentFolder.h"
#include "TestSupport.h"
#include "tests/support/ChildProcess.h"

namespace {

using Json = nlohmann::json;
using Texts = std::vector<std::string>;

const std::string SampleFolder = ESTIMATE_SAMPLES;
const Texts SampleBill = {SampleFolder + "/bill.csv", "--vars", SampleFolder + "/variables.csv"};
const Texts OfBuilding = {"--extra-costs", "建筑子目2012.zkx", "--family", "北京"};
const Texts SampleRates = {"--rates", SampleFolder + "/extra-costs.csv"};

Texts operator+(Texts first, const Texts& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

ProgramResult Price(const Texts& arguments) {
    ProgramCall call;
    call.program = ESTIMATE_PROGRAM;
    call.arguments = Texts{"--installation", ESTIMATE_INSTALLATION, "price"} + arguments;
    ProgramResult result = RunProgram(call);
    std::erase(result.out, '\r');
    std::erase(result.err, '\r');
    return result;
}

}  // namespace

TEST(PriceExtraCosts, TheSampleInText) {
    const ProgramResult result = Price(SampleBill + Texts{"--area", "LW*BW*3"} + OfBuilding + SampleRates);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    const std::string section =
        "\n增加费  北京 建筑子目2012.zkx\n\n"
        "系数      增加费名称    编码    计算基础(元)  费率(%)    金额(元)\n"
        "-----------------------------------------------------------------\n"
        "超高增加  檐高20m以内   0105      941,271.86     0.80    7,530.20\n"
        "超高增加  檐高20m以内   0109      106,804.21     1.20    1,281.65\n"
        "          小计                                           8,811.85\n"
        "子目系数  超高降效              2,954,832.99     0.50   14,774.12\n"
        "子目系数  超高降效      010401     19,045.21     1.50      285.68\n"
        "          小计                                          15,059.80\n"
        "工程系数  垂直运输              2,973,878.20\n"
        "          小计                                               0.00\n"
        "综合系数  安全文明施工          2,997,749.85     3.50  104,921.24\n"
        "          小计                                         104,921.24\n"
        "          合计                                         128,792.89\n\n";
    EXPECT_TRUE(Has(result.out, section)) << result.out.substr(result.out.size() - 2000);
    EXPECT_TRUE(
        result.out.ends_with("清单合计  2,973,878.20 元\n增加费    128,792.89 元\n总价      3,102,671.09 元\n"
                             "单方造价  1,949.33 元/m2\n大写金额  叁佰壹拾万贰仟陆佰柒拾壹元零玖分\n"))
        << result.out.substr(result.out.size() - 400);
}

TEST(PriceExtraCosts, TheRestOfTheReportIsAsWithoutThem) {
    const std::string with = Price(SampleBill + OfBuilding + SampleRates).out;
    const std::string without = Price(SampleBill).out;
    EXPECT_EQ(with.substr(0, with.find("\n增加费  ")), without.substr(0, without.find("\n清单项目  ")));
    Json json = Json::parse(Price(SampleBill + OfBuilding + SampleRates + Texts{"--json"}).out);
    Json plain = Json::parse(Price(SampleBill + Texts{"--json"}).out);
    EXPECT_FALSE(plain.contains("extraCosts"));
    EXPECT_FALSE(plain["total"].contains("extraCosts"));
    EXPECT_EQ(json["total"]["amount"], plain["total"]["amount"]);
    json.erase("extraCosts");
    json.erase("total");
    plain.erase("total");
    EXPECT_EQ(json, plain);
}

TEST(PriceExtraCosts, TheSampleInJson) {
    const Json json = Json::parse(Price(SampleBill + OfBuilding + SampleRates + Texts{"--json"}).out);
    const Json& costs = json["extraCosts"];
    EXPECT_EQ(costs["library"], "建筑子目2012.zkx");
    EXPECT_EQ(costs["family"], "北京");
    EXPECT_EQ(costs["amount"], 128792.89);
    ASSERT_EQ(costs["types"].size(), 4u);
    EXPECT_EQ(costs["types"][0]["type"], "over-height");
    EXPECT_EQ(costs["types"][1], Json::parse(R"({"type": "item", "coefficient": "子目系数", "amount": 15059.8,
        "costs": [{"name": "超高降效", "code": "", "base": 2954832.99, "rate": 0.5, "amount": 14774.12},
                  {"name": "超高降效", "code": "010401", "base": 19045.21, "rate": 1.5, "amount": 285.68}]})"));
    EXPECT_EQ(costs["types"][2], Json::parse(R"({"type": "project", "coefficient": "工程系数", "amount": 0,
        "costs": [{"name": "垂直运输", "code": "", "base": 2973878.2, "rate": null, "amount": null}]})"));
    EXPECT_EQ(costs["types"][3]["costs"][0]["base"], 2997749.85);
    EXPECT_EQ(json["total"]["extraCosts"], 128792.89);
    EXPECT_EQ(json["total"]["amountWithExtraCosts"], 3102671.09);
    EXPECT_EQ(json["total"]["capital"], "叁佰壹拾万贰仟陆佰柒拾壹元零玖分");
}

TEST(PriceExtraCosts, TheSampleInCsv) {
    const ProgramResult result = Price(SampleBill + OfBuilding + SampleRates + Texts{"--csv"});
    const std::string rows =
        "\"extra "
        "cost\",\"0105\",\"檐高20m以内\",\"超高增加\",\"%\",\"\",\"0.80\",\"941271.86\",\"7530.20\",\"over-"
        "height\"\n"
        "\"extra "
        "cost\",\"0109\",\"檐高20m以内\",\"超高增加\",\"%\",\"\",\"1.20\",\"106804.21\",\"1281.65\",\"over-"
        "height\"\n"
        "\"extra costs\",\"\",\"超高增加\",\"\",\"\",\"\",\"\",\"\",\"8811.85\",\"over-height\"\n";
    EXPECT_TRUE(Has(result.out, rows)) << result.out.substr(result.out.size() - 2000);
    EXPECT_TRUE(Has(
        result.out,
        "\"extra cost\",\"\",\"垂直运输\",\"工程系数\",\"%\",\"\",\"\",\"2973878.20\",\"\",\"project\"\n"));
    EXPECT_TRUE(Has(result.out,
                    "\"total\",\"extra costs\",\"\",\"\",\"\",\"\",\"\",\"\",\"128792.89\",\"\"\n"
                    "\"total\",\"with extra costs\",\"\",\"\",\"\",\"\",\"\",\"\",\"3102671.09\",\"\"\n"
                    "\"capital\",\"\",\"叁佰壹拾万贰仟陆佰柒拾壹元零玖分\","));
}

TEST(PriceExtraCosts, WithoutRatesTheTypesAreListed) {
    const ProgramResult result =
        Price({SampleFolder + "/project.xml", "--extra-costs", "安装子目2012.zkx", "-f", "北京"});
    EXPECT_EQ(result.status, 0) << result.err;
    for (const char* line : {"子目系数  操作高度增加        2,973,878.20\n          小计                     "
                             "                      0.00\n",
                             "工程系数  高层建筑增加  ", "综合系数  脚手架搭拆    ",
                             "增加费    0.00 元\n总价      2,973,878.20 元\n"})
        EXPECT_TRUE(Has(result.out, line)) << line << result.out.substr(result.out.size() - 1500);
}

TEST(PriceExtraCosts, EveryNumberOfJobsGivesTheSame) {
    const Texts bills = {SampleFolder + "/project.xml", SampleFolder + "/overview.xml",
                         SampleFolder + "/project.xml", SampleFolder + "/overview.xml",
                         SampleFolder + "/project.xml"};
    for (const Texts& form : {Texts{"--json"}, Texts{}}) {
        const Texts arguments = bills + form + OfBuilding + SampleRates;
        const ProgramResult one = Price(arguments + Texts{"--jobs", "1"});
        EXPECT_EQ(one.status, 0) << one.err;
        EXPECT_TRUE(Has(one.out, "超高降效"));
        for (const char* jobs : {"2", "5"})
            EXPECT_EQ(Price(arguments + Texts{"--jobs", jobs}).out, one.out) << jobs;
    }
}

TEST(PriceExtraCosts, BadRatesAreReportedAndTheOthersCharged) {
    const ArgumentFolder folder;
    const std::string rates = folder.Write("r.csv", "name,rate\n垂直运输,2\n高层建筑增加,3\n");
    const ProgramResult result = Price(SampleBill + OfBuilding + Texts{"--rates", rates, "--json"});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(
        Has(result.err, ":3:1: error: name: the library 建筑子目2012.zkx has no extra cost of this name"))
        << result.err;
    const Json json = Json::parse(result.out);
    EXPECT_EQ(json["extraCosts"]["amount"], 59477.56);
    EXPECT_EQ(json["problems"].size(), 1u);
}

TEST(PriceExtraCosts, WhatCantBeChargedAtAllIsRefused) {
    const ArgumentFolder folder;
    const std::string rates = folder.Write("r.csv", "a,b\n");
    const auto refuses = [&](const Texts& arguments, const std::string& reason) {
        const ProgramResult result = Price(SampleBill + arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(Has(result.err, reason)) << result.err;
    };
    refuses({"--extra-costs", "建筑子目2012.zkx", "-f", "上海"},
            "no extra costs of 建筑子目2012.zkx in family 上海");
    refuses({"--extra-costs", "", "-f", "北京"}, "no extra costs of  in family 北京");
    refuses({"--extra-costs", "建筑子目2012.zkx"}, "--family");
    refuses({"--family", "北京"}, "--extra-costs");
    refuses(SampleRates, "--extra-costs");
    refuses(OfBuilding + Texts{"--rates", rates}, "no row names the columns: name, rate");
    refuses(OfBuilding + Texts{"--rates", folder.Path("none.csv")}, "the file can't be read");
    refuses(Texts{SampleFolder + "/bill.csv", "--rates", "-"} + OfBuilding, "standard input is one file");
}
