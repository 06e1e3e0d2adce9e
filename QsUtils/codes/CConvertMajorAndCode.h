// Names of majors and their short codes, from the file MajorCode.ini of the installation.
#pragma once

#include <map>

#include "QsUtils/text/CString.h"
#include "QsUtils/text/CStringArray.h"

namespace QsCodes {

/// Holds the pairs of the majors that the product knows. `IQsUtils` documents the operations of the same
/// names. Constant once it is loaded, so any thread may ask it; a lookup outside of the maps reads the file.
class CConvertMajorAndCode {
public:
    virtual ~CConvertMajorAndCode() = default;

    /// The file beside the executable.
    static CString FilePath();
    /// Asks the file for every key of the two lists; a missing file leaves the maps empty.
    void Load(const CString& path);

    void GetMajorCodeByName(const CString& name, CString& code) const;
    void GetMajorByCode(const CString& code, CString& name) const;
    void GetAllMajorName(CStringArray& names) const;

private:
    using Map = std::map<CString, CString>;
    static CString LookUp(const Map& map, const CString& key);

    Map m_mapNameToCode;
    Map m_mapCodeToName;
};

}  // namespace QsCodes
