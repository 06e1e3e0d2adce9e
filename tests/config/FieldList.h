// Fields of an overview that a test owns.
#pragma once

#include <list>

#include "QsUtils/config/ProjectOverview.h"

class FieldList {
public:
    using Field = QS_ProjectOverView::stuColInfo;

    FieldList() = default;
    FieldList(const FieldList&) = delete;
    FieldList& operator=(const FieldList&) = delete;
    ~FieldList() {
        for (const Field* field : fields)
            delete field;
    }

    Field& Add() {
        fields.push_back(new Field);
        return *fields.back();
    }
    Field& operator[](std::size_t index) {
        auto at = fields.begin();
        while (index-- > 0)
            ++at;
        return **at;
    }

    std::list<Field*> fields;
};
