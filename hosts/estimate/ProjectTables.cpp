#include "CsvWriter.h"
#include "Project.h"

namespace Estimate {

void WriteBillTable(std::ostream& out, const Project& project) {
    CsvWriter csv(out);
    csv.Write({"项目编码", "项目名称", "项目特征", "计量单位", "工程量表达式", "综合单价"});
    for (const BillRow& row : project.rows)
        csv.Write(row.fields);
}

void WriteVariableTable(std::ostream& out, const Project& project) {
    CsvWriter csv(out);
    csv.Write({"变量名", "数值", "说明"});
    for (const VariableRow& row : project.variables)
        csv.Write(row.fields);
}

}  // namespace Estimate
