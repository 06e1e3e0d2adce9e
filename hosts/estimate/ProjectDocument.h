// Projects in XML files; the format is described in docs/project-xml.md.
#pragma once

#include <memory>
#include <string>

#include <QsUtils/QsUtils.h>

#include "BillRow.h"
#include "CsvRows.h"
#include "VariableRow.h"

namespace Estimate {

namespace ProjectName {

inline constexpr const wchar_t* Project = L"Project";
inline constexpr const wchar_t* Variables = L"Variables";
inline constexpr const wchar_t* Variable = L"Variable";
inline constexpr const wchar_t* Bill = L"Bill";
inline constexpr const wchar_t* Item = L"Item";
inline constexpr const wchar_t* Quota = L"Quota";
inline constexpr const wchar_t* Heading = L"Heading";
inline constexpr const wchar_t* Name = L"Name";
inline constexpr const wchar_t* Area = L"Area";

/// The attributes of rows, by `BillColumn` and by `VariableColumn`.
inline constexpr std::array RowAttributes = {L"Code", L"Name", L"Features", L"Unit", L"Formula", L"Price"};
inline constexpr std::array VariableAttributes = {L"Name", L"Value", L"Remark"};

}  // namespace ProjectName

/// Loads a file. The root is null when there is a refusal, which says why the file is no project.
struct ProjectDocument {
    explicit ProjectDocument(const std::string& path);

    std::unique_ptr<XMLNode> root;
    Message refusal;
};

/// An attribute of an element in UTF-8, without white space around it; empty when there is none.
std::string AttributeText(const XMLNode& element, const wchar_t* name);

/// Hands the variables of a project to `handler`, in the order of the file.
void VisitVariables(const XMLNode& root, const VariableRowHandler& handler);

/// Hands the rows of a project's bill to `handler`, in the order of the file, each bill item in front of its
/// quota rows. `progress` is told the part that has been read, out of `total`.
void VisitBill(const XMLNode& root, const BillRowHandler& handler, std::uint64_t total = 0,
               const ByteProgress& progress = {});

}  // namespace Estimate
