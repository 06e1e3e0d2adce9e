#include "QsUtils/c_api/Frame.h"

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/frame/CTimeCostTracker.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/frame/IQsUtils1.h"

using QsCApi::Call;
using QsCApi::Give;
using QsCApi::TextOf;

struct QsTimeCostTracker {
    CTimeCostTracker tracker;
};

QsStatus QsGetSoftVersion(QsString** version) {
    return Call([&] { Give(version, IQsUtils::GetSoftVersion()); }, version);
}

QsStatus QsSetSoftVersion(const QsChar* version, std::int32_t length) {
    return Call([&] { IQsUtils::SetSoftVersion(TextOf(version, length)); });
}

QsStatus QsRecordLogInfo(const QsChar* text, std::int32_t length, const QsChar* path,
                         std::int32_t pathLength) {
    return Call([&] { IQsUtils1::RecordLogInfo(TextOf(text, length), TextOf(path, pathLength)); });
}

QsStatus QsLogError(const QsChar* text, std::int32_t length) {
    return Call([&] { IQsUtils1::LogError(TextOf(text, length)); });
}

QsStatus QsTimeCostTracker_Create(const QsChar* name, std::int32_t length, QsTimeCostTracker** tracker) {
    return Call([&] { *tracker = new QsTimeCostTracker{CTimeCostTracker(TextOf(name, length))}; }, tracker);
}

void QsTimeCostTracker_Free(QsTimeCostTracker* tracker) {
    delete tracker;
}
