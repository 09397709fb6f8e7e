// What the generated header declares: enumerations, records and interfaces, in the order of the text.
#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct DeclaredEnum {
    std::string name;
    std::vector<std::pair<std::string, long long>> values;
};
struct DeclaredRecord {
    std::string name;
    std::vector<std::string> fields;
};
struct DeclaredInterface {
    std::string name;
    std::vector<std::string> methods; ///< own ones, in slot order
};

/// Reads the header line by line: its generator writes one declaration to a line.
class HeaderReader {
public:
    explicit HeaderReader(const std::string& path)
    {
        std::ifstream file(path);
        for (std::string line; std::getline(file, line);)
            m_lines.push_back(std::move(line));
    }
    bool Empty() const { return m_lines.empty(); }

    std::vector<DeclaredEnum> Enums() const
    {
        std::vector<DeclaredEnum> found;
        for (const auto& [name, body] : Blocks("typedef enum ", " {")) {
            DeclaredEnum declared{name, {}};
            for (const std::string& line : body) {
                const auto assign = line.find(" = ");
                const auto begin = line.find_first_not_of(' ');
                declared.values.emplace_back(line.substr(begin, assign - begin),
                                             std::stoll(line.substr(assign + 3), nullptr, 0));
            }
            found.push_back(std::move(declared));
        }
        return found;
    }
    std::vector<DeclaredRecord> Records() const
    {
        std::vector<DeclaredRecord> found;
        for (const auto& [name, body] : Blocks("typedef struct ", " {")) {
            DeclaredRecord declared{name, {}};
            for (const std::string& line : body) {
                const auto begin = line.find_last_of(' ') + 1;
                declared.fields.push_back(line.substr(begin, line.find(';') - begin));
            }
            found.push_back(std::move(declared));
        }
        return found;
    }
    std::vector<DeclaredInterface> Interfaces() const
    {
        static constexpr std::string_view kSlot = "virtual HRESULT STDMETHODCALLTYPE ";
        std::vector<DeclaredInterface> found;
        for (const char* base : {" : public IUnknown", " : public IDispatch"}) {
            for (const auto& [name, body] : Blocks("", base)) {
                DeclaredInterface declared{name, {}};
                for (const std::string& line : body) {
                    const auto slot = line.find(kSlot);
                    if (slot != line.npos)
                        declared.methods.push_back(
                            line.substr(slot + kSlot.size(), line.find('(') - slot - kSlot.size()));
                }
                if (!declared.methods.empty()) // an event interface is called late bound and declares none
                    found.push_back(std::move(declared));
            }
        }
        return found;
    }

private:
    using Block = std::pair<std::string, std::vector<std::string>>;

    /// The name between `before` and `after` on a line of its own, and the lines up to the closing brace.
    std::vector<Block> Blocks(std::string_view before, std::string_view after) const
    {
        std::vector<Block> blocks;
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            const std::string_view line = m_lines[i];
            if (line.size() <= before.size() + after.size() || !line.starts_with(before) || !line.ends_with(after))
                continue;
            Block block;
            block.first = line.substr(before.size(), line.size() - before.size() - after.size());
            while (++i < m_lines.size() && !m_lines[i].starts_with('}'))
                if (m_lines[i] != "{")
                    block.second.push_back(m_lines[i]);
            blocks.push_back(std::move(block));
        }
        return blocks;
    }

    std::vector<std::string> m_lines;
};
