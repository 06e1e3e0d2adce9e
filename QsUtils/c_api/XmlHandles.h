// What the handles of trees stand for.
#pragma once

#include "QsUtils/c_api/Xml.h"
#include "QsUtils/xml/XMLNode.h"

namespace QsCApi {

inline QsXmlNode* HandleOf(XMLNode* record) {
    return reinterpret_cast<QsXmlNode*>(record);
}

inline XMLNode* RecordOf(QsXmlNode* handle) {
    return reinterpret_cast<XMLNode*>(handle);
}

inline const XMLNode* RecordOf(const QsXmlNode* handle) {
    return reinterpret_cast<const XMLNode*>(handle);
}

}  // namespace QsCApi
