#!/usr/bin/env python3
"""Writes random pairs of texts for AskWordCompare: word_pairs.py codes|names COUNT."""
import random
import sys

WORDS = """
土方 石方 平整场地 挖基坑 回填 余土外运 砖基础 实心砖墙 多孔砖墙 空心砌块墙 砌体 垫层 带形基础 独立基础
满堂基础 矩形柱 构造柱 圈梁 过梁 有梁板 无梁板 楼梯 雨篷 阳台 散水 坡道 台阶 后浇带 现浇混凝土 预制混凝土
商品混凝土 泵送 模板 钢筋 圆钢 螺纹钢 冷轧带肋 箍筋 预埋铁件 钢柱 钢梁 木门 木窗 金属卷帘门 防火门 塑钢窗
铝合金 断桥 玻璃 屋面 卷材防水 涂膜防水 刚性层 保温 隔热 挤塑板 岩棉 水泥砂浆 混合砂浆 石灰 抹灰 踢脚线
地砖 石材 花岗岩 大理石 瓷砖 墙面砖 乳胶漆 腻子 吊顶 石膏板 轻钢龙骨 矿棉板 油漆 调和漆 栏杆 扶手 脚手架
垂直运输 超高 大型机械 安全文明 夜间施工 二次搬运 冬雨季 规费 税金 人工 材料 机械 综合工日 普通 特殊 一级
二级 三级 甲 乙 丙 丁 东 西 南 北 内墙 外墙 地面 楼面 天棚 基层 面层 厚 宽 高 直径 以内 以外 每增
每减 其他 零星 项目 阀门 管道 镀锌 焊接 法兰 弯头 三通 电缆 桥架 配电箱 灯具 开关 插座 风管 风机 水泵
消防 喷淋 报警 探测器 绿化 乔木 灌木 草皮 重 长 行 地 大 会 都 还 单 曾 参 校 乐 量 数 便 盛 称
传 厦 藏 朝 降
""".split()
MARKS = """
C30 C20 M5 M7.5 MU10 Φ10 Φ12 φ8 DN100 DN50 De110 A-1 B-2 1 2 3 10 20 100 1:2 1:2.5 2.5 0.5 1-1 2# 4'- HRB400
HPB300 PVC PPR UPVC KBG SC20 abc ABC Ab aB XPS EPS II SBS APP
""".split()
SIGNS = list("（）()、，。：；-—–+×/~～·*# %‰㎡m²℃°①②③⑴ⅠⅡ【】《》“”±≤≥[]") + ["", "", " "]
PRINTABLE = "".join(map(chr, range(33, 127)))
CODE_ALPHABETS = [
    "0123456789" * 6 + "-----....//''ABCabcxyzXYZ" + PRINTABLE,
    "".join(map(chr, range(1, 128))),
    "01-'",
    "aAbB-",
    "0-.'a\x01\x1f\x7f",
]


def name():
    parts = []
    for _ in range(random.randint(1, 5)):
        parts.append(random.choice(random.choices([WORDS, MARKS, SIGNS], [6, 2, 2])[0]))
    return "".join(parts)


def name_pair():
    first = name()
    if random.random() < 0.5:
        return first, name()
    return first, first[: random.randint(0, len(first))] + name()


def changed(text, alphabet):
    units = list(text)
    for _ in range(random.randint(0, 2)):
        at = random.randint(0, len(units))
        kind = random.randrange(3)
        if kind == 0:
            units.insert(at, random.choice(alphabet))
        elif kind == 1 and units:
            units.pop(min(at, len(units) - 1))
        elif units:
            at = min(at, len(units) - 1)
            units[at] = units[at].swapcase()
    return "".join(units)


def code_pair():
    alphabet = random.choice(CODE_ALPHABETS)
    first = "".join(random.choices(alphabet, k=random.randint(0, 9)))
    if random.random() < 0.6:
        return first, changed(first, alphabet)
    return first, "".join(random.choices(alphabet, k=random.randint(0, 9)))


def escaped(text):
    return "".join(c if c >= " " and c not in "\\\x7f" else "\\u%04X" % ord(c) for c in text)


def main():
    random.seed(20)
    make = {"codes": code_pair, "names": name_pair}[sys.argv[1]]
    for _ in range(int(sys.argv[2])):
        print("\t".join(map(escaped, make())))


if __name__ == "__main__":
    main()
