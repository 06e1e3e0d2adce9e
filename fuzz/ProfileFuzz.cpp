// Profile files: a reading and an edit, and what must hold between them.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

#include "QsUtils/platform/ProfileFile.h"
#include "QsUtils/platform/ProfileText.h"

namespace {

/// Takes a text of up to `most` bytes off the head: its length, then its bytes.
std::u16string Take(const std::uint8_t*& data, std::size_t& size, std::size_t most) {
    if (size == 0)
        return {};
    std::size_t length = *data % (most + 1);
    ++data;
    --size;
    length = length < size ? length : size;
    std::u16string text(data, data + length);
    data += length;
    size -= length;
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string section = Take(data, size, 4);
    const std::u16string key = Take(data, size, 4);
    const std::u16string value = Take(data, size, 8);
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto document = QsPlatform::ProfileDocument::FromBytes(bytes);
    if (document.Text(section, key, value, 6).GetLength() > 5)
        std::abort();
    const std::optional<std::string> edited = QsPlatform::SetProfileValue(bytes, section, key, value);
    if (!edited)
        return 0;
    const std::optional<std::u16string> found =
        QsPlatform::FindProfileValue(QsPlatform::ProfileText(*edited), QsPlatform::TrimProfileName(section),
                                     QsPlatform::TrimProfileName(key));
    // What was written is found, and writing it again changes nothing.
    if (!found || QsPlatform::SetProfileValue(*edited, section, key, value) != edited)
        std::abort();
    return 0;
}
