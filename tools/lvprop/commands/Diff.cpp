// lvprop diff: two saved texts, record by record.
#include "platform/system/Utf8.h"
#include "tools/lvprop/Command.h"
#include "tools/lvprop/Inputs.h"
#include "tools/lvprop/SavedCheck.h"

#include <map>

namespace {

constexpr const char* kExamples = R"(  lvprop diff before.txt after.txt           what differs, by id
  lvprop diff before.txt after.txt --json    the same for a program

The exit status is 1 when the texts differ, or when one holds records that cannot be read.)";

constexpr size_t kValueColumns = 48;

struct DiffOptions {
    std::string left;
    std::string right;
    LONG version = 1;
};

struct KeptRecord {
    unsigned flags = 0;
    LONG editFlags = 0;
    LONG type = 0;
    std::string value;
};

struct ReadText {
    std::map<LONG, KeptRecord> records; ///< of a repeated id the last one, as a load takes it
    size_t unreadable = 0;
};

ReadText ReadAll(const std::string& name, LONG version, const Console& console)
{
    const SavedFile saved = OpenSaved(name);
    ReadText read;
    CheckedRecord checked;
    saved.ForEachRecord([&](size_t offset, size_t, const Text& record) {
        CheckRecord(record, version, checked);
        if (checked.error != E_PROP_PARSE_ERROR_NONE) {
            ++read.unreadable;
            console.err << name << ", byte " << offset << ": " << checked.fault << '\n';
            return;
        }
        read.records[checked.record.id] = {checked.record.flags, checked.record.editFlags, checked.record.type,
                                           Utf8From(checked.record.value)};
    });
    return read;
}

struct Difference {
    LONG id = 0;
    std::string what;
    std::string left;
    std::string right;
};

std::string TypeText(const KeptRecord& record)
{
    return Utf8From(DataTypeKeyword(record.type));
}

std::string EditFlagsText(const KeptRecord& record)
{
    if (!(record.flags & kSavedEditFlags))
        return "not saved";
    char text[16];
    std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(record.editFlags));
    return text;
}

void CompareRecords(LONG id, const KeptRecord& left, const KeptRecord& right, std::vector<Difference>& differences)
{
    const auto add = [&](const char* what, const std::string& a, const std::string& b) {
        if (a != b)
            differences.push_back({id, what, a, b});
    };
    add("value", left.value, right.value);
    add("flags", FlagWords(left.flags), FlagWords(right.flags));
    add("edit flags", EditFlagsText(left), EditFlagsText(right));
    add("type", TypeText(left), TypeText(right));
}

std::vector<Difference> Compare(const ReadText& left, const ReadText& right)
{
    std::vector<Difference> differences;
    for (const auto& [id, record] : left.records) {
        const auto other = right.records.find(id);
        if (other == right.records.end())
            differences.push_back({id, "only in the first", record.value, {}});
        else
            CompareRecords(id, record, other->second, differences);
    }
    for (const auto& [id, record] : right.records)
        if (!left.records.contains(id))
            differences.push_back({id, "only in the second", {}, record.value});
    return differences;
}

ExitStatus RunDiff(const DiffOptions& options, const Console& console)
{
    const ReadText left = ReadAll(options.left, options.version, console);
    const ReadText right = ReadAll(options.right, options.version, console);
    const std::vector<Difference> differences = Compare(left, right);
    if (console.json) {
        Json list = Json::array();
        for (const Difference& difference : differences)
            list.push_back({{"id", difference.id},
                            {"what", difference.what},
                            {"first", difference.left},
                            {"second", difference.right}});
        console.out << FormatJson(
            {{"first", left.records.size()}, {"second", right.records.size()}, {"differences", list}});
    } else {
        Table table({{"id", true}, {"what"}, {options.left}, {options.right}});
        for (const Difference& difference : differences)
            table.Add({std::to_string(difference.id), difference.what, OneLine(difference.left, kValueColumns),
                       OneLine(difference.right, kValueColumns)});
        if (!table.IsEmpty())
            table.Print(console);
        console.out << Counted(differences.size(), "difference") << '\n';
    }
    const bool isSame = differences.empty() && left.unreadable + right.unreadable == 0;
    return isSame ? ExitStatus::Fine : ExitStatus::DataHasFaults;
}

} // namespace

void AddDiffCommand(CLI::App& tool, Action& chosen)
{
    const auto options = std::make_shared<DiffOptions>();
    CLI::App& command =
        AddCommand(tool, chosen, "diff", "Compares two saved texts by id", kExamples, options, &RunDiff);
    command.add_option("A", options->left, "First saved text")->type_name("FILE")->required();
    command.add_option("B", options->right, "Second saved text")->type_name("FILE")->required();
    AddVersionOption(command, options->version);
}
