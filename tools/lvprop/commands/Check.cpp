// lvprop check: everything in a saved text that will not load, and why.
#include "platform/system/Utf8.h"
#include "tools/lvprop/Command.h"
#include "tools/lvprop/Inputs.h"
#include "tools/lvprop/SavedCheck.h"

#include <algorithm>
#include <iomanip>

namespace {

constexpr const char* kExamples =
    R"(  lvprop check plate.txt                what will not load, and what will load otherwise than it stands
  lvprop check old.txt --version 0      a text of the format before the present one
  for f in *.txt; do lvprop check "$f" --quiet || echo "$f"; done)";

constexpr size_t kValueColumns = 48;

struct CheckOptions {
    std::string saved;
    LONG version = 1;
    bool isQuiet = false;
};

struct Repeat {
    LONG id = 0;
    size_t times = 0;
};

/// Ids that stand more than once: the last record of each wins. Sorts the list.
std::vector<Repeat> RepeatsIn(std::vector<LONG>& ids)
{
    std::ranges::sort(ids);
    std::vector<Repeat> repeats;
    for (size_t i = 0; i < ids.size();) {
        size_t end = i + 1;
        while (end < ids.size() && ids[end] == ids[i])
            ++end;
        if (end - i > 1)
            repeats.push_back({ids[i], end - i});
        i = end;
    }
    return repeats;
}

class Report {
public:
    Report(const CheckOptions& options, const Console& console) : m_options(options), m_console(console)
    {
        if (console.json)
            console.out << "{\n  \"troubles\": [";
    }

    void Add(size_t offset, const CheckedRecord& checked)
    {
        ++(checked.fault.empty() ? m_remarks : m_faults);
        if (m_options.isQuiet)
            return;
        const std::string& reason = checked.fault.empty() ? checked.remark : checked.fault;
        const char* kind = checked.fault.empty() ? "remark" : "fault";
        if (m_console.json) {
            const Json json = {
                {"offset", offset}, {"kind", kind}, {"reason", reason}, {"record", Utf8From(checked.text)}};
            m_console.out << (m_remarks + m_faults > 1 ? ",\n    " : "\n    ")
                          << json.dump(-1, ' ', false, Json::error_handler_t::replace);
            return;
        }
        m_console.out << std::setw(10) << offset << "  "
                      << m_console.Paint(checked.fault.empty() ? Colour::Yellow : Colour::Red, kind) << "  " << reason
                      << ": " << OneLine(Utf8From(checked.text), kValueColumns) << '\n';
    }

    ExitStatus Finish(size_t records, const std::vector<Repeat>& repeats, bool beginsRight)
    {
        if (m_console.json)
            FinishJson(records, repeats);
        else
            FinishText(records, repeats);
        return m_faults + m_remarks + repeats.size() == 0 && beginsRight ? ExitStatus::Fine : ExitStatus::DataHasFaults;
    }

private:
    void FinishText(size_t records, const std::vector<Repeat>& repeats) const
    {
        if (!m_options.isQuiet)
            for (const Repeat& repeat : repeats)
                m_console.out << "property " << repeat.id << " stands " << repeat.times
                              << " times; the last record wins\n";
        m_console.out << Counted(records, "record") << ": " << m_faults << " will not load, " << m_remarks
                      << " will load otherwise than it stands, " << repeats.size() << " of the ids are repeated\n";
    }

    void FinishJson(size_t records, const std::vector<Repeat>& repeats) const
    {
        Json list = Json::array();
        for (const Repeat& repeat : repeats)
            list.push_back({{"id", repeat.id}, {"times", repeat.times}});
        m_console.out << "\n  ],\n  \"records\": " << records << ",\n  \"faults\": " << m_faults
                      << ",\n  \"remarks\": " << m_remarks << ",\n  \"repeats\": " << list.dump() << "\n}\n";
    }

    const CheckOptions& m_options;
    const Console& m_console;
    size_t m_faults = 0;
    size_t m_remarks = 0;
};

ExitStatus RunCheck(const CheckOptions& options, const Console& console)
{
    const SavedFile saved = SavedFile::Open(options.saved);
    if (saved.IsEmpty())
        console.err << options.saved << ": the text is empty: a load of it fails\n";
    else if (!saved.BeginsWithMarker())
        console.err << options.saved << ": the text begins with \"" << saved.FirstCharacter()
                    << "\", not with the record marker \"~\"\n";

    Report report(options, console);
    Progress progress(console, "records:");
    CheckedRecord checked;
    std::vector<LONG> ids;
    size_t records = 0;
    saved.ForEachRecord([&](size_t offset, size_t, const Text& record) {
        CheckRecord(record, options.version, checked);
        if (checked.error == E_PROP_PARSE_ERROR_NONE)
            ids.push_back(checked.record.id);
        if (!checked.IsFine())
            report.Add(offset, checked);
        progress.Step(++records);
    });
    return report.Finish(records, RepeatsIn(ids), saved.BeginsWithMarker());
}

} // namespace

void AddCheckCommand(CLI::App& tool, Action& chosen)
{
    const auto options = std::make_shared<CheckOptions>();
    CLI::App& command = AddCommand(tool, chosen, "check", "Tells what of a saved text will not load, and why",
                                   kExamples, options, &RunCheck);
    command.add_option("SAVED", options->saved, "Saved text")->type_name("FILE")->required();
    AddVersionOption(command, options->version);
    command.add_flag("-q,--quiet", options->isQuiet, "Only the counts");
}
