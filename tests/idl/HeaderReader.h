// What the generated header declares: enumerations, records and interfaces, in the order of the text.
#pragma once

#include <fstream>
#include <regex>
#include <sstream>
#include <string>
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

class HeaderReader {
public:
    explicit HeaderReader(const std::string& path)
    {
        std::stringstream text;
        text << std::ifstream(path).rdbuf();
        m_text = text.str();
    }
    bool Empty() const { return m_text.empty(); }

    std::vector<DeclaredEnum> Enums() const
    {
        std::vector<DeclaredEnum> found;
        static const std::regex entry(R"((\w+) = ([-\w]+))");
        for (const auto& [name, body] : Blocks(R"(typedef enum (\w+) \{([^}]*)\})")) {
            DeclaredEnum declared{name, {}};
            for (std::sregex_iterator it(body.begin(), body.end(), entry), end; it != end; ++it)
                declared.values.emplace_back((*it)[1], std::stoll((*it)[2], nullptr, 0));
            found.push_back(std::move(declared));
        }
        return found;
    }
    std::vector<DeclaredRecord> Records() const
    {
        std::vector<DeclaredRecord> found;
        static const std::regex field(R"((\w+);)");
        for (const auto& [name, body] : Blocks(R"(typedef struct (\w+) \{([^}]*)\})")) {
            DeclaredRecord declared{name, {}};
            for (std::sregex_iterator it(body.begin(), body.end(), field), end; it != end; ++it)
                declared.fields.push_back((*it)[1]);
            found.push_back(std::move(declared));
        }
        return found;
    }
    std::vector<DeclaredInterface> Interfaces() const
    {
        std::vector<DeclaredInterface> found;
        static const std::regex method(R"(virtual HRESULT STDMETHODCALLTYPE (\w+)\()");
        for (const auto& [name, body] : Blocks(R"((\w+) : public I(?:Unknown|Dispatch)\s*\{([^}]*)\})")) {
            DeclaredInterface declared{name, {}};
            for (std::sregex_iterator it(body.begin(), body.end(), method), end; it != end; ++it)
                declared.methods.push_back((*it)[1]);
            if (!declared.methods.empty()) // an event interface is called late bound and declares none
                found.push_back(std::move(declared));
        }
        return found;
    }

private:
    std::vector<std::pair<std::string, std::string>> Blocks(const char* pattern) const
    {
        std::vector<std::pair<std::string, std::string>> blocks;
        const std::regex block(pattern);
        for (std::sregex_iterator it(m_text.begin(), m_text.end(), block), end; it != end; ++it)
            blocks.emplace_back((*it)[1], (*it)[2]);
        return blocks;
    }

    std::string m_text;
};
