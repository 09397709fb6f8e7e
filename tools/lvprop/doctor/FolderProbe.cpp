#include "tools/lvprop/doctor/FolderProbe.h"

#include "platform/system/Utf8.h"
#include "tools/lvprop/Files.h"
#include "tools/lvprop/ToolError.h"
#include "tools/lvprop/doctor/Diagnosis.h"
#include "tools/lvprop/doctor/SystemProbe.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& name)
{
    return fs::path(std::u8string(name.begin(), name.end()));
}

std::string NameOf(const fs::path& path)
{
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

std::string Lower(std::string name)
{
    std::ranges::transform(name, name.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return name;
}

/// The files of a folder by name; case does not count, as it does not where the files are for.
class Listing {
public:
    explicit Listing(const std::string& folder) : m_folder(PathOf(folder))
    {
        std::error_code error;
        if (!fs::is_directory(m_folder, error))
            RefuseInput(folder + ": there is no such folder");
        for (fs::directory_iterator at(m_folder, error), end; !error && at != end; at.increment(error))
            m_files[Lower(NameOf(at->path().filename()))] = NameOf(at->path());
        if (error)
            RefuseInput(folder + ": the folder cannot be read");
    }

    /// Where the file is, or where it would be.
    std::string Path(std::string_view name) const
    {
        const auto found = m_files.find(Lower(std::string(name)));
        return found == m_files.end() ? NameOf(m_folder / PathOf(std::string(name))) : found->second;
    }
    bool Has(std::string_view name) const { return m_files.contains(Lower(std::string(name))); }
    const std::map<std::string, std::string>& Files() const { return m_files; }

private:
    fs::path m_folder;
    std::map<std::string, std::string> m_files; // full path by name in small letters
};

ManifestFacts ReadManifest(const std::string& path)
{
    ManifestFacts facts;
    facts.name = NameOf(PathOf(path).filename());
    facts.isThere = true;
    try {
        facts.manifest = ReadAssemblyManifest(facts.name, ReadFile(path));
    } catch (const ToolError& error) {
        facts.trouble = error.what();
    }
    return facts;
}

ModuleFacts LookAtModule(const SuiteModule& module, const Listing& listing)
{
    ModuleFacts facts{&module, LookAtLibrary(listing.Path(module.dll)), {}};
    const std::string manifest = std::string(module.assembly) + ".manifest";
    if (listing.Has(manifest))
        facts.manifest = ReadManifest(listing.Path(manifest));
    else
        facts.manifest.name = manifest;
    return facts;
}

bool NamesTheSuite(const ManifestFacts& program)
{
    return std::ranges::any_of(program.manifest.dependencies, [](const AssemblyIdentity& assembly) {
        return assembly.name.starts_with(kSuiteAssemblies);
    });
}

} // namespace

FolderFacts LookIntoFolder(const std::string& folder)
{
    const Listing listing(folder);
    FolderFacts facts;
    facts.path = folder;
    for (const SuiteModule& module : SuiteModules())
        facts.modules.push_back(LookAtModule(module, listing));
    for (const auto& [name, path] : listing.Files()) {
        if (!name.ends_with(".exe.manifest"))
            continue;
        if (ManifestFacts program = ReadManifest(path); NamesTheSuite(program))
            facts.programs.push_back(std::move(program));
    }
    return facts;
}

std::vector<LanguageFacts> LookForLanguages(const std::string& folder, const std::vector<std::string>& codes)
{
    const Listing listing(folder);
    std::vector<LanguageFacts> languages;
    for (const std::string& code : codes)
        languages.push_back({code, LookAtLibrary(listing.Path(LanguageLibraryName(code)))});
    return languages;
}

LibraryFacts LookAtLibrary(const std::string& path)
{
    LibraryFacts facts;
    facts.path = path;
    std::error_code error;
    facts.isThere = fs::is_regular_file(PathOf(path), error);
    if (!facts.isThere)
        return facts;
    facts.image = ReadPeImage(ReadFile(path));
    if (facts.image.state == PeImage::State::Whole && facts.image.machine == kMachineX64)
        facts.refusal = LoadRefusal(path);
    return facts;
}
