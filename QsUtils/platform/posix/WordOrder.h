// What the word order of Windows in zh-CN puts elsewhere than ICU's collation by pinyin does.
#pragma once

#include <cstdint>
#include <string_view>

namespace QsPlatform::WordOrder {

/// ASCII in its order: blank and controls that have weight, punctuation, signs, digits. Letters follow.
inline constexpr std::u16string_view Ascii = u" \t\n\v\f\r!\"#$%&()*,./:;?@[\\]^_`{|}~+<=>0123456789";

/// Symbols that stand behind one of ASCII and before the next, in their order.
struct Gap {
    char16_t behind;
    std::u16string_view symbols;
};
inline constexpr Gap Gaps[] = {
    {u',', u"、"},
    {u'.', u"。"},
    {u'~', u"¡¦¨¯￣´ˊ¸¿ˇ˙‖‘’“”′″‵‹›〈〉¢《£¤》¥「」『』【】〔€〕〖〗〝〞〃〆"},
    {u'>',
     u"±«»×÷∈∏∑√∝∟∠∣∥∧∨∩∪∫∮∴∵∶∷∽≈≌≒≡≤≥≦≧⊥⊿⌒■□▲△▼▽◆◇○◎●◢◣◤◥↑↗→↘↓↙←↖"
     u"─━┄┅┈┉═│┃┆┇┊┋║┌┍┎┏╒╓╔╭┐┑┒┓╕╖╗╮└┕┖┗╘╙╚╰┘┙┚┛╛╜╝╯├┝┞┟┠┡┢┣╞╟╠┤┥┦┧┨┩┪┫╡╢╣"
     u"┬┭┮┯┰┱┲┳╤╥╦┴┵┶┷┸┹┺┻╧╨╩┼┽┾┿╀╁╂╃╄╅╆╇╈╉╊╋╪╫╬╱╲╳▁▏▔▕▂▎▃▍▄▌▅▋▆▊▇▉█▓"
     u"§©¬®°µ¶·‥…〒〓☆★☉♀♂※‰"},
    {u'0', u"¼½¾"},
    {u'9', u"⑩⑽⒑⑾⒒⑿⒓⒀⒔⒁⒕⒂⒖⒃⒗⒄⒘⒅⒙⒆⒚⒇⒛ⅰⅠⅱⅡⅲⅢⅳⅣⅴⅤⅵⅥⅶⅦⅷⅧⅸⅨⅹⅩⅪⅫ∞"},
};

/// Units that only break ties, the lightest first.
inline constexpr std::u16string_view TieBreakers =
    u"\x01\x02\x03\x04\x05\x06\x07\x08\x0e\x0f\x10\x11\x12\x13\x14\x15\x16\x17\x18\x19\x1a\x1b\x1c\x1d\x1e"
    u"\x1f\x7f"
    u"'＇-﹣－−‐‑‧⁃‒–︲—︱―〜〰";

/// Units without any weight, besides those that ICU ignores.
inline constexpr std::u16string_view Ignored = u"\u00AD\u200D\uFEFF\uFFFD";

/// Marks above and below letters, the lightest first.
inline constexpr std::u16string_view Marks =
    u"\u030D\u0301\u0300\u0307\u0302\u0308\u030C\u0306\u0304\u0303\u030A\u0328"
    u"\u0327\u030B\u0335\u0336\u0337\u0338";

/// The first of all hanzi.
inline constexpr char16_t FirstHanzi = u'吖';

/// Hanzi that are read otherwise, each with the one that it stands behind; several behind the same one are in
/// their order.
inline constexpr std::u16string_view MovedHanzi =
    u"宀薄芘比疒禀擘檗刂草掺觇孱禅豉耻楱凑亻黛卩黛坻诋丶癫町盯钭抖犭蘩攵蘩伽旮聒崞砉花灬火迹哜绩寂袷铗"
    u"纟鹪诘杰阚看蚵疴傀夔冫墚潦獠呒锊嬷磨肀捏蹒磐彷滂拚苤冖娉埔朴茄鞘炔券彡三氵三疋书丨曙忄曙焘绦扌踢"
    u"冂嗵柁驼隗萎亠瘟喔涡矽析芎兄噱踅龈鄞仔栽辗搌碡轴著疰丬装椎骓辶鲰菹租嘬撙阝琢酢做";

}  // namespace QsPlatform::WordOrder
