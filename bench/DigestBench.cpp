// The digest of texts and of material records, beside OpenSSL's.
#include <cstdint>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <openssl/evp.h>

#include "QsUtils/QsUtils.h"

namespace {

/// The text of a digest, as `GetStreamMD5` gives it.
CString Hexadecimal(const unsigned char* digest, unsigned size) {
    std::u16string text(2 * std::size_t{size}, u'\0');
    for (unsigned i = 0; i < size; ++i) {
        text[2 * i] = u"0123456789abcdef"[digest[i] >> 4];
        text[2 * i + 1] = u"0123456789abcdef"[digest[i] & 0x0F];
    }
    return CString(std::move(text));
}

/// The peer's one call for the digest of what lies in memory.
CString EvpDigest(std::u16string_view text) {
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned size = 0;
    EVP_Digest(text.data(), text.size() * sizeof(char16_t), digest, &size, EVP_md5(), nullptr);
    return Hexadecimal(digest, size);
}

/// The peer with its algorithm fetched and its context made once, which few callers take the trouble to do.
class KeptEvp {
public:
    KeptEvp() : m_context(EVP_MD_CTX_new()), m_md5(EVP_MD_fetch(nullptr, "MD5", nullptr)) {}
    ~KeptEvp() {
        EVP_MD_free(m_md5);
        EVP_MD_CTX_free(m_context);
    }
    KeptEvp(const KeptEvp&) = delete;
    KeptEvp& operator=(const KeptEvp&) = delete;

    CString Digest(std::u16string_view text) {
        unsigned char digest[EVP_MAX_MD_SIZE];
        unsigned size = 0;
        EVP_DigestInit_ex(m_context, m_md5, nullptr);
        EVP_DigestUpdate(m_context, text.data(), text.size() * sizeof(char16_t));
        EVP_DigestFinal_ex(m_context, digest, &size);
        return Hexadecimal(digest, size);
    }

private:
    EVP_MD_CTX* m_context;
    EVP_MD* m_md5;
};

/// A text of so many bytes.
CString TextOfBytes(std::int64_t bytes) {
    std::u16string text(static_cast<std::size_t>(bytes) / sizeof(char16_t), u'\0');
    std::uint32_t next = 1;
    for (char16_t& unit : text) {
        next = next * 1664525 + 1013904223;
        unit = static_cast<char16_t>(next >> 16);
    }
    return CString(std::move(text));
}

void TextOurs(benchmark::State& state) {
    const CString text = TextOfBytes(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(IQsUtils::GetStreamMD5(text));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(TextOurs)->Name("Digest/GetStreamMD5/ours")->Arg(64)->Arg(1024)->Arg(16 << 20);

void TextOpenssl(benchmark::State& state) {
    const CString text = TextOfBytes(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(EvpDigest(text.View()));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(TextOpenssl)->Name("Digest/GetStreamMD5/openssl")->Arg(64)->Arg(1024)->Arg(16 << 20);

void TextKeptOpenssl(benchmark::State& state) {
    const CString text = TextOfBytes(state.range(0));
    KeptEvp evp;
    for (auto _ : state)
        benchmark::DoNotOptimize(evp.Digest(text.View()));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(TextKeptOpenssl)->Name("Digest/GetStreamMD5/openssl_kept")->Arg(64)->Arg(1024)->Arg(16 << 20);

CommonMaterialKey Reinforcement() {
    CommonMaterialKey key;
    key.strKeyText1 = u"01010401";
    key.strKeyText2 = u"螺纹钢筋";
    key.strKeyText3 = u"HRB400 Φ16";
    key.strKeyText4 = u"t";
    key.strKeyText5 = u"3860.00";
    key.strKeyText6 = u"材料";
    key.strKeyText7 = u"黑色金属";
    key.bKeyFlag1 = true;
    key.strKeyText8 = u"1.02";
    return key;
}

void MaterialOurs(benchmark::State& state) {
    CommonMaterialKey key = Reinforcement();
    for (auto _ : state)
        benchmark::DoNotOptimize(IQsUtils1::GenerateMaterialMD5(&key));
}
BENCHMARK(MaterialOurs)->Name("Digest/GenerateMaterialMD5/ours");

void MaterialOpenssl(benchmark::State& state) {
    const CommonMaterialKey key = Reinforcement();
    for (auto _ : state) {
        const std::vector<CString> fields = {key.strKeyText1,
                                             key.strKeyText2,
                                             key.strKeyText3,
                                             key.strKeyText4,
                                             key.strKeyText5,
                                             key.strKeyText6,
                                             key.strKeyText7,
                                             key.bKeyFlag1 ? u"1" : u"0",
                                             key.bKeyFlag2 ? u"1" : u"0",
                                             key.strKeyText8};
        CString joined;
        IQsUtils::TransAryToStr(fields, joined, u"\t");
        benchmark::DoNotOptimize(EvpDigest(joined.View()));
    }
}
BENCHMARK(MaterialOpenssl)->Name("Digest/GenerateMaterialMD5/openssl");

}  // namespace
