// What the commands of the installations' host share.
#pragma once

#include <cstdio>
#include <vector>

#include <QsUtils/QsUtils.h>

#include "tests/support/Escapes.h"

class Arguments {
public:
    Arguments(int count, char** texts) : m_next(texts + 1), m_end(texts + count) {}

    bool HasNext() const { return m_next != m_end; }
    CString Next() { return HasNext() ? CString(Unescaped(*m_next++)) : CString(); }

private:
    char** m_next;
    char** m_end;
};

inline void Answer(const CString& text) {
    std::puts(Escaped(text.View()).c_str());
}

inline void Answer(bool answer) {
    Answer(CString(answer ? u"yes" : u"no"));
}

inline void Answer(const std::vector<CString>& texts) {
    CString joined;
    IQsUtils::TransAryToStr(texts, joined, u"|");
    Answer(joined);
}

/// Does a command about folders, libraries or configuration files; false when it is none.
bool DoFolders(const CString& command, Arguments& arguments);
bool DoLibraries(const CString& command, Arguments& arguments);
bool DoConfiguration(const CString& command, Arguments& arguments);
