#include "QsUtils/c_api/Materials.h"

#include <iterator>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/frame/IQsUtils1.h"
#include "QsUtils/material/CommonMaterialKey.h"

using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::Give;
using QsCApi::TextOf;

struct QsMaterialKey {
    CommonMaterialKey key;
};

QsStatus QsGetStreamMD5(const QsChar* text, std::int32_t length, QsString** digest) {
    return Call([&] { Give(digest, IQsUtils::GetStreamMD5(TextOf(text, length))); }, digest);
}

QsStatus QsMaterialKey_Create(QsMaterialKey** key) {
    return Call([&] { *key = new QsMaterialKey; }, key);
}

QsStatus QsMaterialKey_SetText(QsMaterialKey* key, std::int32_t number, const QsChar* text,
                               std::int32_t length) {
    static constexpr CString CommonMaterialKey::*Fields[] = {
        &CommonMaterialKey::strKeyText1, &CommonMaterialKey::strKeyText2, &CommonMaterialKey::strKeyText3,
        &CommonMaterialKey::strKeyText4, &CommonMaterialKey::strKeyText5, &CommonMaterialKey::strKeyText6,
        &CommonMaterialKey::strKeyText7, &CommonMaterialKey::strKeyText8};
    return Call([&] {
        QsCApi::Require(number >= 1 && static_cast<std::size_t>(number) <= std::size(Fields));
        Checked(key).key.*Fields[number - 1] = TextOf(text, length);
    });
}

QsStatus QsMaterialKey_SetFlag(QsMaterialKey* key, std::int32_t number, std::int32_t value) {
    return Call([&] {
        QsCApi::Require(number == 1 || number == 2);
        (number == 1 ? Checked(key).key.bKeyFlag1 : Checked(key).key.bKeyFlag2) = value != 0;
    });
}

void QsMaterialKey_Free(QsMaterialKey* key) {
    delete key;
}

QsStatus QsGenerateMaterialMD5(QsMaterialKey* key, QsString** digest) {
    return Call([&] { Give(digest, IQsUtils1::GenerateMaterialMD5(&Checked(key).key)); }, digest);
}
