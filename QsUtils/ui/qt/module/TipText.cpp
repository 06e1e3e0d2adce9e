#include "QsUtils/ui/qt/module/TipText.h"

#include <QFontDatabase>

#include "QsUtils/ui/qt/module/Text.h"

namespace QsQt {

namespace {

/// Faces in the manner of 宋体, then any others for simplified Chinese that are common.
constexpr const char16_t* LikeFaces[] = {u"SimSun",
                                         u"NSimSun",
                                         u"新宋体",
                                         u"Noto Serif CJK SC",
                                         u"Source Han Serif SC",
                                         u"Noto Serif SC",
                                         u"AR PL UMing CN",
                                         u"AR PL SungtiL GB",
                                         u"Noto Sans CJK SC",
                                         u"Source Han Sans SC",
                                         u"WenQuanYi Micro Hei",
                                         u"WenQuanYi Zen Hei",
                                         u"Droid Sans Fallback"};

}  // namespace

QFont TipFontFor(const QsUi::TipFont& wanted) {
    const QStringList installed = QFontDatabase::families(QFontDatabase::SimplifiedChinese);
    QStringList faces;
    const auto add = [&](const QString& face) {
        if (installed.contains(face, Qt::CaseInsensitive))
            faces.append(face);
    };
    add(ToQString(wanted.face));
    for (const char16_t* const face : LikeFaces)
        add(ToQString(face));
    if (faces.isEmpty())
        faces = installed.mid(0, 1);
    QFont font;
    if (!faces.isEmpty())
        font.setFamilies(faces);
    font.setPointSizeF(wanted.size / 10.0);
    return font;
}

QStringList MeasuredLines(std::u16string_view text) {
    QStringList lines;
    QString line;
    bool isOpen = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (unit == u'\r' || unit == u'\n') {
            if (unit == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n')
                ++at;
            lines.append(line);
            line.clear();
            isOpen = false;
            continue;
        }
        isOpen = true;
        if (unit == u'&' && at + 1 < text.size() && text[at + 1] != u'\r' && text[at + 1] != u'\n')
            line += QChar(text[++at]);
        else if (unit != u'&')
            line += QChar(unit < u' ' ? u' ' : unit);
    }
    if (isOpen || lines.isEmpty())
        lines.append(line);
    return lines;
}

QString PaintedLine(std::u16string_view text) {
    QString line = ToQString(text);
    for (QChar& unit : line) {
        if (unit < QLatin1Char(' '))
            unit = QLatin1Char(' ');
    }
    return line;
}

}  // namespace QsQt
