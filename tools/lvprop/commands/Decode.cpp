// lvprop decode: every record of a saved text explained, without any tree.
#include "platform/system/Utf8.h"
#include "tools/lvprop/Command.h"
#include "tools/lvprop/Inputs.h"
#include "tools/lvprop/SavedCheck.h"

#include <iomanip>

namespace {

constexpr const char* kExamples =
    R"(  lvprop decode plate.txt                  every record: place in the file, id, flags, type, value
  lvprop decode old.txt --version 0        a text of the format before the present one
  lvprop decode plate.txt --json           the same for a program, one record to a line)";

constexpr size_t kValueColumns = 60;

struct DecodeOptions {
    std::string saved;
    LONG version = 1;
};

std::string Hex(LONG number, bool isUpper)
{
    char text[16];
    std::snprintf(text, sizeof text, isUpper ? "%X" : "%x", static_cast<unsigned>(number));
    return text;
}

bool HasEditFlags(const CheckedRecord& checked)
{
    return (checked.record.flags & kSavedEditFlags) != 0;
}

/// Columns of fixed width: the file may hold more records than anyone wants to keep.
void PrintHeading(const Console& console)
{
    console.out << console.Paint(Colour::Bold, "    offset  length          id        hex  flags              edit  "
                                               "type            value")
                << '\n';
}

void PrintRow(const CheckedRecord& checked, size_t offset, size_t length, LONG version, const Console& console)
{
    const SavedRecord& record = checked.record;
    console.out << std::setw(10) << offset << "  " << std::setw(6) << length << "  ";
    if (checked.error != E_PROP_PARSE_ERROR_NONE) {
        console.out << console.Paint(Colour::Red, checked.fault) << ": "
                    << OneLine(Utf8From(checked.text), kValueColumns) << '\n';
        return;
    }
    const std::string type = version == 0 ? "" : Utf8From(DataTypeKeyword(record.type));
    console.out << std::setw(10) << record.id << "  " << std::setw(9) << Hex(record.id, false) << "  " << std::left
                << std::setw(19) << FlagWords(record.flags) << std::setw(6)
                << (HasEditFlags(checked) ? Hex(record.editFlags, true) : "") << std::setw(16) << type << std::right
                << OneLine(Utf8From(record.value), kValueColumns);
    const std::string& trouble = checked.fault.empty() ? checked.remark : checked.fault;
    if (!trouble.empty())
        console.out << "  " << console.Paint(checked.fault.empty() ? Colour::Yellow : Colour::Red, "! " + trouble);
    console.out << '\n';
}

Json JsonOf(const CheckedRecord& checked, size_t offset, size_t length, LONG version)
{
    const SavedRecord& record = checked.record;
    Json json = {{"offset", offset}, {"length", length}};
    if (checked.error != E_PROP_PARSE_ERROR_NONE) {
        json["record"] = Utf8From(checked.text);
    } else {
        json["id"] = record.id;
        json["visible"] = (record.flags & kSavedVisible) != 0;
        json["readOnly"] = (record.flags & kSavedReadOnly) != 0;
        if (HasEditFlags(checked))
            json["editFlags"] = record.editFlags;
        if (version != 0)
            json["type"] = Utf8From(DataTypeKeyword(record.type));
        json["value"] = Utf8From(record.value);
    }
    if (!checked.fault.empty())
        json["fault"] = checked.fault;
    if (!checked.remark.empty())
        json["remark"] = checked.remark;
    return json;
}

ExitStatus RunDecode(const DecodeOptions& options, const Console& console)
{
    const SavedFile saved = SavedFile::Open(options.saved);
    if (!saved.IsEmpty() && !saved.BeginsWithMarker())
        console.err << options.saved << ": the text begins with \"" << saved.FirstCharacter()
                    << "\", not with the record marker \"~\"\n";
    if (saved.IsEmpty())
        console.err << options.saved << ": the text is empty\n";

    Progress progress(console, "records:");
    CheckedRecord checked;
    size_t count = 0;
    bool isFine = saved.BeginsWithMarker();
    if (console.json)
        console.out << "[";
    else
        PrintHeading(console);
    saved.ForEachRecord([&](size_t offset, size_t length, const Text& record) {
        CheckRecord(record, options.version, checked);
        isFine = isFine && checked.IsFine();
        if (console.json)
            console.out << (count ? ",\n " : "\n ")
                        << JsonOf(checked, offset, length, options.version)
                               .dump(-1, ' ', false, Json::error_handler_t::replace);
        else
            PrintRow(checked, offset, length, options.version, console);
        progress.Step(++count);
    });
    if (console.json)
        console.out << "\n]\n";
    else
        console.out << Counted(count, "record") << '\n';
    return isFine ? ExitStatus::Fine : ExitStatus::DataHasFaults;
}

} // namespace

void AddDecodeCommand(CLI::App& tool, Action& chosen)
{
    const auto options = std::make_shared<DecodeOptions>();
    CLI::App& command = AddCommand(tool, chosen, "decode", "Explains every record of a saved text, without any tree",
                                   kExamples, options, &RunDecode);
    command.add_option("SAVED", options->saved, "Saved text")->type_name("FILE")->required();
    AddVersionOption(command, options->version);
}
