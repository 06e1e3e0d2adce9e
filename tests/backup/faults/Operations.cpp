#include "tests/backup/faults/Operations.h"

#include "QsUtils/frame/IQsUtils.h"

void Carry(Operation operation, const CString& project) {
    CString path;
    switch (operation) {
        case Operation::Open:
            return IQsUtils::InitBackUpInfo(project);
        case Operation::Save:
            return IQsUtils::OnBackUpSaveFile(project);
        case Operation::Change:
            return IQsUtils::UpdateGraphicFileVer(project);
        case Operation::Discard:
            return IQsUtils::OnNotSaveGraphicFile(project);
        case Operation::Look:
            return IQsUtils::GetCurBackUpPath(path, project);
    }
}
