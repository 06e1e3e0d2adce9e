// Random documents, most of them well-formed, in several encodings.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/text/WideText.h"

namespace PlainXml {

/// Bytes of a document in one encoding.
inline std::string Encode(std::u16string_view text, std::string_view encoding) {
    std::string bytes;
    const auto add = [&](unsigned value) { bytes += static_cast<char>(value & 0xFF); };
    if (encoding == "GBK")
        return QsPlatform::EncodeAnsi(text);
    if (encoding == "UTF-16LE" || encoding == "UTF-16BE") {
        const bool little = encoding == "UTF-16LE";
        const std::u16string marked = u"\uFEFF" + std::u16string(text);
        for (const char16_t unit : marked) {
            add(little ? unit : unit >> 8U);
            add(little ? unit >> 8U : unit);
        }
        return bytes;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (encoding == "ISO-8859-1") {
            add(character > 0xFF ? '?' : character);
            continue;
        }
        if ((character & 0xFC00) == 0xD800 && i + 1 < text.size())
            character = 0x10000 + ((character - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
        if (character < 0x80) {
            add(character);
        } else if (character < 0x800) {
            add(0xC0 | character >> 6);
            add(0x80 | (character & 0x3F));
        } else if (character < 0x10000) {
            add(0xE0 | character >> 12);
            add(0x80 | (character >> 6 & 0x3F));
            add(0x80 | (character & 0x3F));
        } else {
            add(0xF0 | character >> 18);
            add(0x80 | (character >> 12 & 0x3F));
            add(0x80 | (character >> 6 & 0x3F));
            add(0x80 | (character & 0x3F));
        }
    }
    return bytes;
}

class RandomDocument {
public:
    explicit RandomDocument(std::uint64_t seed) : m_state(seed * 0x9E3779B97F4A7C15U + 1) {}

    std::string Next() {
        m_text.clear();
        m_hasEntities = false;
        const Encoding& encoding = Encodings[Below(std::size(Encodings))];
        if (encoding.declared != nullptr)
            m_text += std::u16string(u"<?xml version=\"") + (Below(10) == 0 ? u"1.1" : u"1.0") +
                      u"\" encoding=\"" + encoding.declared + u"\"" +
                      (Below(4) == 0 ? u" standalone=\"yes\"" : u"") + u"?>";
        else if (Below(2) == 0)
            m_text += u"<?xml version=\"1.0\"?>";
        Misc();
        if (Below(3) == 0)
            Doctype();
        m_left = Below(12);
        Element(0);
        Misc();
        if (Below(3) == 0)
            Spoil();
        std::string bytes = (encoding.mark ? "\xEF\xBB\xBF" : "") + Encode(m_text, encoding.name);
        if (Below(20) == 0)
            bytes.resize(Below(bytes.size() + 1));
        if (Below(20) == 0 && !bytes.empty())
            bytes[Below(bytes.size())] = static_cast<char>(Below(256));
        return bytes;
    }

    std::size_t Below(std::size_t limit) {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 7;
        m_state ^= m_state << 17;
        return static_cast<std::size_t>(m_state >> 11) % limit;
    }

private:
    struct Encoding {
        std::string_view name;
        const char16_t* declared;
        bool mark;
    };
    static constexpr Encoding Encodings[] = {
        {"UTF-8", nullptr, false},      {"UTF-8", u"UTF-8", false},
        {"UTF-8", u"utf-8", true},      {"UTF-16LE", nullptr, false},
        {"UTF-16LE", u"UTF-16", false}, {"UTF-16BE", u"UTF-16", false},
        {"GBK", u"GBK", false},         {"GBK", u"GB2312", false},
        {"GBK", u"gb18030", false},     {"ISO-8859-1", u"ISO-8859-1", false}};

    std::u16string_view Pick(std::initializer_list<std::u16string_view> choices) {
        return choices.begin()[Below(choices.size())];
    }
    std::u16string_view Name() { return Pick({u"a", u"b", u"Item", u"清单", u"x:y", u"_-.1"}); }

    void Misc() {
        for (std::size_t i = Below(3); i > 0; --i)
            m_text += Pick({u"\n", u"<!-- 注 -->", u"<?go on?>", u" ", u""});
    }

    void Doctype() {
        m_text += u"<!DOCTYPE ";
        m_text += Name();
        m_text += Pick({u"", u"", u" SYSTEM \"none.dtd\"", u" PUBLIC \"p\" \"http://none/none.dtd\""});
        if (Below(4) != 0) {
            m_hasEntities = true;
            m_text += u" [";
            for (std::size_t i = Below(6); i > 0; --i)
                m_text += Pick({u"<!ENTITY e 'eins &amp; zwei'>", u"<!ENTITY f '<b k=\"1\">in</b>'>",
                                u"<!ENTITY g '&e;&f; <a/><!--c--> '>", u"<!ENTITY h ''>",
                                u"<!ENTITY i SYSTEM 'file:///etc/hostname'>", u"<!ENTITY j '<![CDATA[x]]>'>",
                                u"<!ATTLIST a d CDATA 'Vor&#x67;abe' x CDATA #IMPLIED>",
                                u"<!ATTLIST 清单 单位 (m|m2) 'm2' id ID #IMPLIED>",
                                u"<!ATTLIST b k NMTOKENS #FIXED ' 1  2 '>", u"<!ELEMENT a (b|Item)*>",
                                u"<!ELEMENT b (#PCDATA)>", u"<!ENTITY % p '<!ENTITY e \"aus p\">'>%p;",
                                u"<!ENTITY % q SYSTEM 'none.ent'> %q; ", u"<!NOTATION n SYSTEM 'x'>",
                                u"<!-- im DTD --><?pi im DTD?>\n"});
            m_text += u"]";
        }
        m_text += u">";
    }

    void Attributes() {
        static constexpr std::u16string_view names[] = {u"x", u"k", u"单位", u"d", u"xml:lang", u"xmlns"};
        for (const std::u16string_view name : names) {
            if (Below(4) != 0)
                continue;
            m_text += Pick({u" ", u"  ", u"\n"});
            m_text += name;
            m_text += Pick({u"='", u" = '"});
            for (std::size_t i = Below(4); i > 0; --i)
                m_text += Pick({u"1", u"a b", u"\t\n", u"&lt;", u"&#x4E00;", u"\"", u"挖土", u"\U0001F3D7",
                                u"&#10;", u" ", m_hasEntities ? u"&e;" : u"", m_hasEntities ? u"&h;" : u""});
            m_text += u"'";
        }
    }

    void Content(std::size_t depth) {
        for (std::size_t i = Below(6); i > 0; --i) {
            switch (Below(9)) {
                case 0:
                    m_text += Pick({u"\n  ", u"  ", u"\r\n", u"\r"});
                    break;
                case 1:
                    m_text += Pick({u"text", u"墙面一般抹灰", u"a]b", u"\U0001F3D7\uFEFF", u"é\u0085\u2028"});
                    break;
                case 2:
                    m_text += Pick({u"&amp;", u"&#65;", u"&#x1F3D7;", u"&gt;", u"&quot;"});
                    break;
                case 3:
                    m_text += Pick({u"<!--c-->", u"<!---->", u"<!-- 注\n释 -->"});
                    break;
                case 4:
                    m_text += Pick({u"<![CDATA[]]>", u"<![CDATA[<a>]]>", u"<![CDATA[x]]><![CDATA[y]]>",
                                    u"<![CDATA[]]]]>"});
                    break;
                case 5:
                    m_text += Pick({u"<?p?>", u"<?p d?>", u"<?pi  some  data ?>"});
                    break;
                case 6:
                    if (m_hasEntities || Below(8) == 0)
                        m_text += Pick({u"&e;", u"&f;", u"&g;", u"&h;", u"&i;", u"&j;", u"&none;"});
                    break;
                default:
                    if (m_left > 0)
                        Element(depth + 1);
            }
        }
    }

    void Element(std::size_t depth) {
        m_left -= m_left > 0 ? 1 : 0;
        const std::u16string name(Name());
        m_text += u"<" + name;
        Attributes();
        m_text += Pick({u"", u"", u" "});
        if (Below(4) == 0) {
            m_text += u"/>";
            return;
        }
        m_text += u">";
        Content(depth);
        m_text += u"</" + name + u">";
    }

    /// Small damages, most of which make the document ill-formed.
    void Spoil() {
        for (std::size_t i = 1 + Below(2); i > 0 && !m_text.empty(); --i) {
            const std::size_t at = Below(m_text.size());
            switch (Below(4)) {
                case 0:
                    m_text.erase(at, 1 + Below(4));
                    break;
                case 1:
                    m_text.insert(at, Pick({u"<", u">", u"&", u"]]>", u"\"", u"<x>", u"</x>", u"\x1", u"--",
                                            u"&#0;", u"\xFFFE", u"/", u"<!", u"<?xml?>"}));
                    break;
                case 2:
                    m_text[at] = static_cast<char16_t>(Below(0x80));
                    break;
                default:
                    m_text.resize(at);
            }
        }
    }

    std::uint64_t m_state;
    std::u16string m_text;
    std::size_t m_left = 0;
    bool m_hasEntities = false;
};

}  // namespace PlainXml
