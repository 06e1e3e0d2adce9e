#!/usr/bin/env python3
"""Writes questions to profile files, one a line, for AskProfile. See README.md.

usage: profile_cases.py NUMBER   the chosen cases and NUMBER random ones, with a fixed seed
"""
import random
import sys

TAIL = "(default)"


def file_field(data):
    return "".join(chr(b) if 0x20 <= b < 0x7F and b != 0x5C else "\\x%02X" % b for b in data)


def text_field(text):
    units = text.encode("utf-16-be", "surrogatepass")
    numbers = [units[i] << 8 | units[i + 1] for i in range(0, len(units), 2)]
    return "".join(chr(n) if 0x20 <= n < 0x7F and n != 0x5C else "\\u%04X" % n for n in numbers)


def as_bytes(content):
    return content if isinstance(content, bytes) else content.encode("gbk")


def read(content, section="S", key="K", default=TAIL, size=128):
    field = "(none)" if content is None else file_field(as_bytes(content))
    print("read", field, text_field(section), text_field(key), text_field(default), size, sep="\t")


def write(content, value, section="S", key="K", *questions):
    field = "(none)" if content is None else file_field(as_bytes(content))
    for asked in questions or ((section, key),):
        print("write", field, text_field(section), text_field(key), text_field(value),
              *(text_field(each) for each in asked), sep="\t")


def plain():
    read(None)
    read(b"")
    read("K=v")
    read("[S]\r\nK=v\r\n")
    read("[S]\r\nK=v")
    read("[S]\r\nK=\r\n")
    read("[S]\r\nK\r\n")
    read("[S]\r\nK\r\nK=v\r\n")
    read("[S]\r\nK=\r\nK=v\r\n")
    read("[S]\r\nK=a=b\r\n")
    read("[S]\r\nK==b\r\n")
    read("[S]\r\nL=1\r\nK=v\r\nK=w\r\n")
    read("[S]\r\nL=1\r\n[S]\r\nK=v\r\n")
    read("[T]\r\nK=1\r\n[S]\r\nK=v\r\n")
    read("[S]\r\nL=1\r\n[T]\r\nK=v\r\n")
    read("[S]\r\n\r\n\r\nK=v\r\n")
    read("[S]\r\n; note\r\n# note\r\nnote\r\nK=v\r\n")
    for key in ("; note", ";", ";K", "#K", "note", ""):
        read("[S]\r\n;K=1\r\n#K=2\r\n; note=3\r\nnote\r\n", key=key)
    read("[S]\r\nK=v ; c\r\n")
    read("[S]\r\nK=v # c\r\n")


def names():
    for section, key in (("s", "k"), ("S", "k"), ("s", "K"), (" S ", " K "), ("\tS\x0b", "\x0cK\t"),
                         ("S S", "K"), ("S", "K K"), ("S\u3000", "K"), ("S", "K\xa0"), ("[S]", "K"),
                         ("S]", "K"), ("", "K"), ("S", ""), ("\u212a", "K"), ("S\r\n", "K\r"), ("S\x1a", "K\x1a")):
        read("[ S ]\r\n \t\x0b\x0c K \t=\t v \t\r\n", section, key)
    for section in ("É".lower(), "é", "É"):
        read("[é]\r\nK=v\r\n".encode("gbk"), section)
    read("[ß]\r\nK=v\r\n".encode("utf-8-sig"), "ss")
    read("[É]\r\nK=v\r\n".encode("utf-8-sig"), "é")
    read("[Σ]\r\nК=v\r\n".encode("utf-8-sig"), "Σ", "к")
    read("[ſ]\r\nK=v\r\n".encode("utf-8-sig"), "s")
    read("[S]\r\n\u212a=v\r\n".encode("utf-8-sig"))
    read("[MajorToCode]\r\n建筑工程=T\r\n", "majortocode", "建筑工程")
    read("[CodeToMajor]\r\n通=通用措施清单\r\n", "CodeToMajor", "通")
    read("[A_]\r\nK=v\r\n", "a_")
    read("[@`{[]\r\nK=v\r\n", "`@[{")


def sections():
    for line in ("[S]K=v", "[S] K=v", "[S] ; see", "[S] ; see [x]", "[S]]", "[S", "S]", "[]", "[ ]", " [S]", "\t[S]",
                 "[[S]", "x[S]", ";[S]", "[S]=v", "[K]=v", "[S=T]", "[S\t]", "[\u3000S]"):
        for section in ("S", "S]", "", "[S", "S] ; see [x"):
            read(line + "\r\nK=v\r\n", section)
    read("[K]=v\r\n", "", "[K]")
    read("[S]\r\n[K=v\r\n", "S", "[K")
    read("[S]\r\n[K]=v\r\nX=w\r\n", "K", "X")
    read("K=v\r\n[S]\r\nK=w\r\n", "")
    read("\r\nK=v\r\n[S]\r\nK=w\r\n", "")
    read("K=v\r\n[]\r\nK=w\r\nL=x\r\n", "", "L")
    read("[]\r\nL=x\r\n", "", "L")
    read("=v\r\n", "", "")
    read("[S]\r\n=v\r\n", "S", "")
    read("[S]\r\n\r\n=v\r\n", "S", "")
    read("[S]\r\n \r\n=v\r\n", "S", "")


def values():
    for value in ('"v"', "'v'", '"v', 'v"', '"v\'', '""', "''", '"', "'", '" v "', '  "v"  ', '"\'v\'"', '"a"b"', '"v" ;c',
                  '"a" "b"', "\u3000v\u3000", "v\x1a", "\x1av", "a\tb", "a\x0bb", '"v"\x1a', "=", "[x]", "\\x"):
        read("[S]\r\nK=" + value + "\r\n")
        read("[S]\r\nL=x\r\n", default=value)
    for default in ("", " ", "   ", "v ", "v  ", " v", " v ", "v\t", "v \t", "\tv", '"v" ', '" v " ', "' v' ", "v\u3000", "v\xa0",
                    '"', '" ', '"" ', "v\n", '"v"\t', "v\x0b ", "\u3000"):
        read("[S]\r\n", default=default)
        read(None, default=default)
    read("[S]\r\nK=v\xb7\r\n".encode("gbk"))
    read(b"[S]\r\nK=\xa0\r\n")


def line_ends():
    for end in ("\n", "\r\n", "\r", "\n\r", "\r\r\n", "\r\n\r\n", "\x0b", "\x0c", "\x85", "\u2028", "\x1a\n", "\x00\n"):
        data = end.join(("[S]", "L=1", "K=v", "M=2", "")).encode("utf-8-sig")
        read(data)
        read(data, key="M")
    read(b"[S]\nL=\x81\nK=v\nM=w\n")
    read(b"[S]\nL=\x81\nK=v\nM=w\n", key="L")
    read(b"[S]\nL=\x81\nK=v\nM=w\n", key="M")
    read(b"[S]\nL=\x81\r\nK=v\r\n")
    read(b"[S]\nL=\x81\r\nK=v\r\n", key="L")
    read(b"[S\x81]\nK=v\n")
    read(b"[S\x81]\nK=v\n", "S?")
    read(b"[S]\nK\x81=v\nK=w\n")
    read(b"[S]\nK=\xfe", size=8)
    read(b"[S]\nK=\xff\n")
    read(b"[S]\nK=\x80\n")
    read(b"[S]\nK=\xaa\xa1\xfe\xfe\n")
    read(b"[S]\nK=a\x1a\nL=v\n", key="L")
    read(b"[S]\n\x1a\nK=v\n")
    read(b"\x1a[S]\nK=v\n")
    read(b"[S]\n\x1aK=v\n")


def nuls():
    for data in (b"[S]\nK=a\0b\nL=v\n", b"[S]\nK\0X=v\nL=v\n", b"[S\0T]\nK=v\n", b"[S]\0\nK=v\n", b"[S]\n\0K=v\n",
                 b"[S]\n\0\nK=v\n", b"\0[S]\nK=v\n", b"[\0S]\nK=v\n", b"[S]\nK=\0v\n", b"[S]\nK= \0 v\n", b"[S]\nK=a \0b\n",
                 b"[S]\nK \0=v\n", b'[S]\nK="a\0b"\n', b'[S]\nK="a"\0b\n', b"[S]\nL=\x81\0\nK=v\n", b"[S]\nK\0=v\n",
                 b"[S]\nK=a\0", b"[S]\nK=v\n\0\0\0", b"[S ]\0]\nK=v\n", b"[S\0]x]\nK=v\n", b"[S\n\0]\nK=v\n"):
        for section, key in (("S", "K"), ("S", "L"), ("", "K"), ("S", ""), ("", ""), ("S ]", "K")):
            read(data, section, key)


def encodings():
    text = "[设置]\r\n路径=工程文件\U0001F600é\r\nK=v\r\n"
    for codec, bom in (("utf-8", b"\xef\xbb\xbf"), ("utf-16-le", b"\xff\xfe"), ("utf-16-be", b"\xfe\xff")):
        data = text.encode(codec)
        for content in (bom + data, data):
            read(content, "设置", "路径")
            read(content, "设置", "K")
        read(bom, "S")
        read(bom + "K=v\r\n".encode(codec), "")
        read(bom + "[S]\nK=v".encode(codec))
        read(bom + "[S]\rK=v\r".encode(codec))
        read(bom + "[S]\nK=a\0b\n".encode(codec))
        read(bom + ("\ufeff[S]\nK=v\n").encode(codec))
        read(bom + ("[S]\n\ufeffK=v\n").encode(codec))
    for bom, codec in ((b"\xff\xfe", "utf-16-le"), (b"\xfe\xff", "utf-16-be")):
        read(bom + "[S]\nK=v\n".encode(codec) + b"x")
        read(bom + "[S]\nK=v".encode(codec) + b"x")
        read(bom + b"[")
        read(bom[:1] + "[S]\nK=v".encode(codec))
        read(bom + "[S]\nK=\ud83dx\udc00\n".encode(codec, "surrogatepass"))
        read(bom + "[\u2163]\nK=v\n".encode(codec), "\u2173")
        read(bom + "[S]\nK=\u0d0a\u0a0d\u0a0a\u0d0d\n".encode(codec))
        read(bom + "[S]\nK=v\u2028L=w\u0085M=x\n".encode(codec))
    read(b"\xef\xbb[S]\nK=v\n")
    read("[设置]\r\nK=a\r\n".encode("gbk"), "设置")
    read(b"\xff\xfe\x00\x00[\0\0\0S\0\0\0]\0\0\0")


def sizes():
    for size in (1, 2, 3, 4, 5, 6, 7, 127, 128, 129, 260, 500):
        read("[S]\r\nK=" + "0123456789" * 30 + "\r\n", size=size)
        read("[S]\r\nK=工程文件名\r\n", size=size)
        read("[S]\r\nK=a\U0001F600b\U0001F600\r\n".encode("utf-8-sig"), size=size)
        read('[S]\r\nK="abcd"\r\n', size=size)
        read("[S]\r\n", default="abcde ", size=size)
        read("[S]\r\n", default='"abcd" ', size=size)
    read("[S]\r\nK=" + "x" * 5000 + "\r\n", size=4096)
    read("[S]\r\nK=" + "x" * 5000 + "\r\n", size=6000)
    read("[S]\r\n" + "N" * 5000 + "=v\r\n", key="N" * 5000)
    read("[" + "N" * 5000 + "]\r\nK=v\r\n", "N" * 5000)


def writing():
    write(None, "v")
    write(b"", "v")
    full = "; head\r\n[S]\r\n; note\r\nK=a\r\nL=b\r\n\r\n[T]\r\nK=c\r\nM\r\n"
    asked = (("S", "K"), ("S", "L"), ("T", "K"), ("S", "N"), ("U", "K"))
    for section, key in (("S", "K"), ("s", "k"), ("S", "N"), ("T", "K"), ("T", "M"), ("U", "K"), (" S ", " K "), ("T", "m")):
        write(full, "新值", section, key, *asked, (section, key))
    for value in ("", " ", " v", "v ", '"v"', '" v "', "a=b", "[x]", ";", "\t v\t", "m²", "é½", "\U0001F600", "v\x1a"):
        write("[S]\r\nK=a\r\nL=b\r\n", value, "S", "K", ("S", "K"), ("S", "L"))
        write("[S]\nK = a\n", value, "S", "K", ("S", "K"))
        write("[S]\r\nK=a\r\n".encode("utf-8-sig"), value, "S", "K", ("S", "K"))
        write(b"\xff\xfe" + "[S]\r\nK=a".encode("utf-16-le"), value, "S", "N", ("S", "N"), ("S", "K"))
        write(b"\xfe\xff" + "[S]\r\nK=a".encode("utf-16-be"), value, "T", "N", ("T", "N"), ("S", "K"))
    write("[S]\r\nK=1\r\nK=2\r\n[S]\r\nK=3\r\n", "v", "S", "K", ("S", "K"))
    write("[S]\r\nL=1\r\n[S]\r\nK=3\r\n", "v", "S", "K", ("S", "K"), ("S", "L"))
    write("[S]\r\nK", "v", "S", "K", ("S", "K"))
    write("[S", "v", "S", "K", ("S", "K"), ("", "[S"))
    write("[S]", "v", "S", "K", ("S", "K"))
    write("L=1\r\n[S]\r\nK=a\r\n", "v", "", "K", ("", "K"), ("S", "K"), ("", "L"))
    write("[S]\r\nK=a\r\n", "v", "", "K", ("", "K"), ("S", "K"))
    write("[S]\r\nK=a\r\n", "v", "S", "", ("S", ""), ("S", "K"))
    write(b"[S]\nK=a\0b\nL=c\n", "v", "S", "K", ("S", "K"), ("S", "L"))
    write(b"[S]\nK=a\nL=c\x81", "v", "S", "N", ("S", "K"), ("S", "L"), ("S", "N"))
    write(b"[S]\nK=a\nL=c\x81\nM=d\n", "v", "S", "N", ("S", "K"), ("S", "L"), ("S", "M"), ("S", "N"))
    write(b"[S]\nK=\x81\nM=d\n", "v", "S", "K", ("S", "K"), ("S", "M"))


PIECES = ["[", "]", "=", "K", "k", "S", "s", "L", " ", "\t", "\n", "\r\n", "\r", '"', "'", ";", "v", "工", "程", "é",
          "\0", "\x0b", "\x0c", "[S]\n", "[s ]\r\n", "K=", "k =", "\nK=", "\n[S]\n", "x]", "\x1a"]
CODECS = [("gbk", b""), ("gbk", b""), ("gbk", b""), ("utf-8", b"\xef\xbb\xbf"), ("utf-16-le", b"\xff\xfe"),
          ("utf-16-be", b"\xfe\xff")]


def random_cases(number):
    chance = random.Random(20240229)
    for _ in range(number):
        codec, bom = chance.choice(CODECS)
        content = "".join(chance.choice(PIECES) for _ in range(chance.randrange(2, 40)))
        if chance.random() < 0.7:
            content = "[S]\n" + content
        data = bom + content.encode(codec)
        if codec == "gbk" and chance.random() < 0.2:
            at = chance.randrange(len(data) + 1)
            data = data[:at] + bytes([chance.randrange(0x80, 0x100)]) + data[at:]
        section = chance.choice(["S", "S", "S", "s", "", "S]", " S", "K", "x"])
        key = chance.choice(["K", "K", "K", "k", "L", "", "K ", ";K", "K K"])
        default = chance.choice([TAIL, "", " d ", '"d"'])
        read(data, section, key, default, chance.choice([128, 128, 2, 3, 5, 260]))


plain()
names()
sections()
values()
line_ends()
nuls()
encodings()
sizes()
writing()
random_cases(int(sys.argv[1]))
