#include "QsUtils/c_api/Files.h"

#include <filesystem>
#include <string>

#include "QsUtils/c_api/Bytes.h"
#include "QsUtils/c_api/Calls.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/frame/IQsUtils1.h"
#include "QsUtils/platform/NativePath.h"

using QsCApi::Call;
using QsCApi::Give;
using QsCApi::TextOf;

// --- Paths and folders

QsStatus QsCreateFolderAllPath(const QsChar* path, std::int32_t length, std::int32_t* exists) {
    return Call([&] { *exists = IQsUtils::CreateFolderAllPath(TextOf(path, length)); }, exists);
}

QsStatus QsCopyFolderAllFiles(const QsChar* source, std::int32_t sourceLength, const QsChar* target,
                              std::int32_t targetLength, std::int32_t clearTarget) {
    return Call([&] {
        IQsUtils::CopyFolderAllFiles(TextOf(source, sourceLength), TextOf(target, targetLength),
                                     clearTarget != 0);
    });
}

QsStatus QsDeleteDirectory(const QsChar* path, std::int32_t length, std::int32_t* isGone) {
    return Call([&] { *isGone = IQsUtils::DeleteDirectory(TextOf(path, length)); }, isGone);
}

QsStatus QsVersionBig(const QsChar* a, std::int32_t aLength, const QsChar* b, std::int32_t bLength,
                      std::int32_t withThirdPart, std::int32_t* order) {
    return Call(
        [&] { *order = IQsUtils::VersionBig(TextOf(a, aLength), TextOf(b, bLength), withThirdPart != 0); },
        order);
}

QsStatus QsIsFileExist(const QsChar* path, std::int32_t length, std::int32_t* exists) {
    return Call([&] { *exists = IQsUtils::IsFileExist(TextOf(path, length)); }, exists);
}

QsStatus QsIsFileOpen(const QsChar* path, std::int32_t length, std::int32_t* isOpen) {
    return Call([&] { *isOpen = IQsUtils::IsFileOpen(TextOf(path, length)); }, isOpen);
}

QsStatus QsPickFileNameFromPath(const QsChar* path, std::int32_t length, QsString** name) {
    return Call([&] { Give(name, IQsUtils::PickFileNameFromPath(TextOf(path, length))); }, name);
}

QsStatus QsRemoveRelativeDirectoryFromPath(const QsChar* path, std::int32_t length, QsString** result) {
    return Call([&] { Give(result, IQsUtils::RemoveRelativeDirectoryFromPath(TextOf(path, length))); },
                result);
}

QsStatus QsFindPath(const QsChar* folder, std::int32_t folderLength, const QsChar* fileName,
                    std::int32_t fileNameLength, const QsChar* tail, std::int32_t tailLength,
                    QsString** path) {
    return Call(
        [&] {
            CString found;
            IQsUtils::FindPath(found, TextOf(folder, folderLength), TextOf(fileName, fileNameLength),
                               TextOf(tail, tailLength));
            Give(path, std::move(found));
        },
        path);
}

QsStatus QsFindRememberedPath(const QsChar* folder, std::int32_t folderLength, const QsChar* fileName,
                              std::int32_t fileNameLength, const QsChar* tail, std::int32_t tailLength,
                              QsString** path) {
    return Call(
        [&] {
            CString found;
            IQsUtils1::FindPath(found, TextOf(folder, folderLength), TextOf(fileName, fileNameLength),
                                TextOf(tail, tailLength));
            Give(path, std::move(found));
        },
        path);
}

QsStatus QsGetInitPath(QsString** path) {
    return Call([&] { Give(path, IQsUtils::GetInitPath()); }, path);
}

QsStatus QsToNativePath(const QsChar* path, std::int32_t length, QsBytes** nativePath) {
    return Call(
        [&] {
            const std::u8string bytes = ToNativePath(TextOf(path, length)).u8string();
            *nativePath = new QsBytes{std::string(bytes.begin(), bytes.end())};
        },
        nativePath);
}

QsStatus QsFromNativePath(const char* nativePath, std::int32_t length, QsString** path) {
    return Call(
        [&] {
            const std::size_t size = QsCApi::SizeOf(nativePath, length);
            const std::u8string bytes =
                size == 0 ? std::u8string() : std::u8string(nativePath, nativePath + size);
            Give(path, FromNativePath(std::filesystem::path(bytes)));
        },
        path);
}

// --- The backup of a project's working copy

QsStatus QsGetCurBackUpPath(const QsChar* file, std::int32_t length, QsString** path) {
    return Call(
        [&] {
            CString found;
            IQsUtils::GetCurBackUpPath(found, TextOf(file, length));
            Give(path, std::move(found));
        },
        path);
}

QsStatus QsGetCurBackUpDataBasePath(const QsChar* file, std::int32_t length, QsString** path) {
    return Call(
        [&] {
            CString found;
            IQsUtils::GetCurBackUpDataBasePath(found, TextOf(file, length));
            Give(path, std::move(found));
        },
        path);
}

QsStatus QsInitBackUpInfo(const QsChar* file, std::int32_t length) {
    return Call([&] { IQsUtils::InitBackUpInfo(TextOf(file, length)); });
}

QsStatus QsOnBackUpSaveFile(const QsChar* file, std::int32_t length) {
    return Call([&] { IQsUtils::OnBackUpSaveFile(TextOf(file, length)); });
}

QsStatus QsUpdateGraphicFileVer(const QsChar* file, std::int32_t length) {
    return Call([&] { IQsUtils::UpdateGraphicFileVer(TextOf(file, length)); });
}

QsStatus QsOnNotSaveGraphicFile(const QsChar* file, std::int32_t length) {
    return Call([&] { IQsUtils::OnNotSaveGraphicFile(TextOf(file, length)); });
}

// --- Open budgets, and what else is on the machine

QsStatus QsIsYsOpen(const QsChar* key, std::int32_t keyLength, const QsChar* item, std::int32_t itemLength,
                    std::int32_t* isOpen) {
    return Call([&] { *isOpen = IQsUtils::IsYsOpen(TextOf(key, keyLength), TextOf(item, itemLength)); },
                isOpen);
}

QsStatus QsYsTypeToString(std::int32_t type, QsString** text) {
    return Call([&] { Give(text, IQsUtils::YsTypeToString(static_cast<eYsType>(type))); }, text);
}

QsStatus QsStringToYsType(const QsChar* text, std::int32_t length, std::int32_t* type) {
    return Call([&] { *type = IQsUtils::StringToYsType(TextOf(text, length)); }, type);
}

QsStatus QsGetExcelInstallVersion(QsString** version) {
    return Call([&] { Give(version, IQsUtils1::GetExcelInstallVersion()); }, version);
}
