// A folder of its own with component DLLs, settings and a manifest, and the client program run in it.
#pragma once

#include "platform/com/Ole.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>

/// What the client printed, and how it ended.
struct ClientRun {
    DWORD exitCode = 0xFFFFFFFF;
    std::string output;

    bool Has(const std::string& line) const { return ("\n" + output).find("\n" + line + "\n") != std::string::npos; }
    /// The rest of the line that begins with `name` and a colon; empty when there is none.
    std::string Value(const std::string& name) const
    {
        const std::string lines = "\n" + output;
        const std::size_t at = lines.find("\n" + name + ": ");
        if (at == std::string::npos)
            return {};
        const std::size_t begin = at + name.size() + 3;
        return lines.substr(begin, lines.find('\n', begin) - begin);
    }
};

class ComponentFolder {
public:
    ComponentFolder()
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = test->name();
        for (char& c : name)
            c = c == '/' ? '_' : c;
        m_path = std::filesystem::temp_directory_path() / ("lv_" + std::to_string(GetCurrentProcessId()) + name);
        std::filesystem::remove_all(m_path);
        std::filesystem::create_directories(m_path);
        Copy("component_client.exe");
    }
    ~ComponentFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    ComponentFolder(const ComponentFolder&) = delete;
    ComponentFolder& operator=(const ComponentFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

    void Copy(const std::string& file) { std::filesystem::copy_file(BuildFolder() / file, m_path / file); }

    /// The DLLs of the suite with their manifests, and one manifest that names those of `assemblies`.
    void Install(std::initializer_list<std::string> assemblies)
    {
        std::ofstream manifest(m_path / "host.manifest");
        manifest
            << "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
               "<assemblyIdentity type=\"win32\" name=\"Host\" version=\"1.0.0.0\" processorArchitecture=\"amd64\"/>\n";
        for (const std::string& assembly : assemblies) {
            Copy("Lumevor." + assembly + ".manifest");
            manifest << "<dependency><dependentAssembly><assemblyIdentity type=\"win32\" name=\"Lumevor." << assembly
                     << "\" version=\"1.85.0.21\" processorArchitecture=\"amd64\"/></dependentAssembly></dependency>\n";
        }
        manifest << "</assembly>\n";
        for (const char* dll : {"LV_prpPropCollection.dll", "LV_strStream.dll", "LV_setSettings.dll"})
            Copy(dll);
    }

    void SetLanguage(const std::string& number)
    {
        std::ofstream(m_path / "Settings.ini") << "[System]\nCurrentLanguage=" << number << "\n";
    }

    /// Runs the client in the folder, with the folder's own settings.
    ClientRun Run(const std::string& arguments) const
    {
        SetEnvironmentVariableW(L"LUMEVOR_SETTINGS", (m_path / "Settings.ini").c_str());
        const std::filesystem::path out = m_path / "output.txt";
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        const HANDLE file =
            CreateFileW(out.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0, nullptr);
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = file;
        start.hStdError = file;
        PROCESS_INFORMATION process{};
        const std::filesystem::path program = m_path / "component_client.exe";
        std::wstring line = L"\"" + program.wstring() + L"\" " + std::wstring(arguments.begin(), arguments.end());

        ClientRun run;
        if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, m_path.c_str(), &start,
                           &process)) {
            constexpr DWORD kMilliseconds = 60000;
            if (WaitForSingleObject(process.hProcess, kMilliseconds) == WAIT_OBJECT_0)
                GetExitCodeProcess(process.hProcess, &run.exitCode);
            else
                TerminateProcess(process.hProcess, 99);
            CloseHandle(process.hThread);
            CloseHandle(process.hProcess);
        }
        CloseHandle(file);
        std::ifstream in(out, std::ios::binary);
        for (std::string text; std::getline(in, text);) {
            if (!text.empty() && text.back() == '\r')
                text.pop_back();
            run.output += text + '\n';
        }
        return run;
    }
    ClientRun RunHosted(const std::string& command) const { return Run("--manifest host.manifest " + command); }

private:
    static std::filesystem::path BuildFolder()
    {
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        return std::filesystem::path(path).parent_path();
    }

    std::filesystem::path m_path;
};
