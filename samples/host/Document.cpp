#include "samples/host/Document.h"

#include "tools/lvprop/Files.h"
#include "tools/lvprop/Inputs.h"
#include "tools/lvprop/QifImport.h"
#include "tools/lvprop/RoutineFile.h"

#include <string_view>

using lumevor::Check;
using lumevor::Transaction;

namespace {

/// Behind blanks and any mark of the encoding: XML begins with "<", in UTF-16 as well.
bool IsMarkup(std::string_view bytes)
{
    constexpr std::string_view kSkipped{"\xEF\xBB\xBF\xFF\xFE \t\r\n\0", 10};
    const size_t first = bytes.find_first_not_of(kSkipped);
    return first != std::string_view::npos && bytes[first] == '<';
}

} // namespace

Document::Document(const std::string& path)
    : m_path(path), m_imported(ReadRoutineOrPlan(path)), m_tree(m_imported.routine)
{
}

Document::Imported Document::ReadRoutineOrPlan(const std::string& path)
{
    const std::string bytes = ReadFile(path);
    if (!IsMarkup(bytes))
        return {ParseRoutine(path, bytes), {}};
    QifImportResult result = ImportQif(path, bytes, {});
    return {std::move(result.routine), std::move(result.report.faults)};
}

std::string Document::Name() const
{
    return m_path.substr(m_path.find_last_of("/\\") + 1);
}

EprpUnitMode Document::UnitMode() const
{
    EprpUnitMode mode = E_METRIC;
    Check(Collection()->GetUnitMode(&mode));
    return mode;
}

void Document::ConvertTo(EprpUnitMode mode)
{
    if (UnitMode() == mode)
        return;
    m_tree.ConvertTo(mode);
    NoteChange();
}

LoadOutcome Document::LoadSaved(const std::string& path)
{
    const SavedFile file = OpenSaved(path);
    LoadOutcome outcome = m_tree.Load(file.WholeText(), 1);
    m_savedPath = path;
    m_hasChanges = false;
    return outcome;
}

void Document::Save(const std::string& path)
{
    WriteFile(path, lumevor::ToUtf8(m_tree.Save()) + "\n");
    m_savedPath = path;
    m_hasChanges = false;
}

std::vector<LONG> Document::Ids() const
{
    const Transaction transaction(Collection());
    std::vector<LONG> ids;
    for (const lumevor::Property& property : Collection().Descendants())
        ids.push_back(property.Id());
    return ids;
}

std::vector<LONG> Document::Parents() const
{
    const Transaction transaction(Collection());
    std::vector<LONG> ids;
    for (const lumevor::Property& property : Collection().Descendants()) {
        if (property.ChildCount() > 0)
            ids.push_back(property.Id());
    }
    return ids;
}

lumevor::Text Document::Describe(LONG id) const
{
    const Transaction transaction(Collection());
    const auto property = Collection().Find(id);
    if (!property)
        return {};
    lumevor::Text fault = property->ErrorText();
    if (fault.empty())
        fault = property->WarningText();
    return property->Name() + (fault.empty() ? lumevor::Text() : OLESTR(": ") + fault);
}
