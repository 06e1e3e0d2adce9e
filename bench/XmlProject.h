// A large project file for the benchmarks: bill items with features and quotas.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

/// Writes about `bytes` bytes of bill items to a temporary file, which goes with this object.
class XmlProject {
public:
    explicit XmlProject(std::size_t bytes)
        : m_path(std::filesystem::temp_directory_path() / "qsutils-bench.xml") {
        std::ofstream file(m_path, std::ios::binary);
        std::size_t written = 0;
        const auto write = [&](const std::string& text) {
            file << text;
            written += text.size();
        };
        write(
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Project Name=\"综合办公楼\" Version=\"10.2\">\n  "
            "<Bill>\n");
        for (int number = 1; written < bytes; ++number)
            write(Item(number));
        write("  </Bill>\n</Project>\n");
    }
    XmlProject(const XmlProject&) = delete;
    XmlProject& operator=(const XmlProject&) = delete;
    ~XmlProject() {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }

    const std::filesystem::path& Path() const { return m_path; }
    std::size_t Bytes() const { return static_cast<std::size_t>(std::filesystem::file_size(m_path)); }

private:
    unsigned Next(unsigned limit) {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<unsigned>(m_state >> 33) % limit;
    }
    const char* Name() {
        static constexpr const char* names[] = {"挖一般土方",   "砖基础",     "矩形柱",
                                                "现浇构件钢筋", "块料楼地面", "水泥砂浆楼地面",
                                                "墙面一般抹灰", "塑料管"};
        return names[Next(8)];
    }
    const char* Unit() {
        static constexpr const char* units[] = {"m3", "m2", "t", "m", "樘", "套", "kg", "项"};
        return units[Next(8)];
    }
    template <typename... Arguments>
    static std::string Line(const char* format, Arguments... arguments) {
        char line[512];
        const int length = std::snprintf(line, sizeof(line), format, arguments...);
        return std::string(line, static_cast<std::size_t>(length));
    }

    std::string Item(int number) {
        std::string text = Line(
            "    <Item Code=\"01%07d001\" Name=\"%s\" Unit=\"%s\" Amount=\"%u.%03u\" Price=\"%u.%02u\" "
            "Formula=\"2*(%u.5+A)\">\n"
            "      <Feature>1.土壤类别:三类土 2.挖土深度:%um以内 3.弃土运距:%ukm</Feature>\n",
            number, Name(), Unit(), Next(1000), Next(1000), Next(500), Next(100), Next(90), Next(9),
            Next(30));
        for (int quota = 0; quota < 2; ++quota)
            text += Line(
                "      <Quota Code=\"1-%u\" Name=\"%s 换\" Unit=\"100%s\" Amount=\"0.%04u\" "
                "Labour=\"%u.%02u\" "
                "Material=\"%u.%02u\" Machine=\"%u.%02u\"/>\n",
                Next(400), Name(), Unit(), Next(10000), Next(900), Next(100), Next(900), Next(100), Next(90),
                Next(100));
        return text + "    </Item>\n";
    }

    std::filesystem::path m_path;
    std::uint64_t m_state = 1;
};
