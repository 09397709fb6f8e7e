// lvprop audit: what a save and a load into a fresh tree lose, field by field.
#include "tools/lvprop/Command.h"
#include "tools/lvprop/Inputs.h"
#include "tools/lvprop/PropertyFields.h"

#include <map>

namespace {

constexpr const char* kExamples = R"(  lvprop audit plate.json              what a save of the routine's values loses
  lvprop audit plate.json plate.txt    ... of the values after the saved text was loaded
  lvprop audit plate.json --summary    only how much, by type and field

The fresh tree has the routine's structure and none of its values. The exit status is 1 when anything is lost.)";

constexpr size_t kValueColumns = 48;

struct AuditOptions {
    TreeInputs inputs;
    bool isSummary = false;
};

struct Audit {
    size_t characters = 0;
    size_t properties = 0;
    bool loadsWhole = false; ///< every record found its property
    bool savesEqual = false; ///< the second save gives the text of the first
    std::vector<std::string> faults;
    std::vector<FieldDifference> losses;
};

Audit AuditTree(const LoadedTree& loaded)
{
    Audit audit;
    const std::vector<TreeProperty> before = loaded.tree.Read();
    const lumevor::Text first = loaded.tree.Save();
    const PropertyTree fresh(loaded.routine, PropertyTree::Values::LeftOut);
    const LoadOutcome outcome = fresh.Load(first, 1);
    const lumevor::Text second = fresh.Save();
    audit.characters = first.size();
    audit.properties = before.size();
    audit.faults = outcome.faults;
    if (!outcome.raised.empty())
        audit.faults.push_back("the load ended early: " + outcome.raised);
    audit.loadsWhole = outcome.isComplete && outcome.raised.empty();
    audit.savesEqual = first == second;
    audit.losses = CompareTrees(before, fresh.Read());
    return audit;
}

/// "point 12" and "point 13" are one kind of field.
std::string KindOf(const FieldDifference& loss)
{
    const bool isPoint = loss.field.starts_with("point ");
    return loss.type + ": " + (isPoint ? "point" : loss.field);
}

std::map<std::string, size_t> CountByKind(const std::vector<FieldDifference>& losses)
{
    std::map<std::string, size_t> counts;
    for (const FieldDifference& loss : losses)
        ++counts[KindOf(loss)];
    return counts;
}

Json JsonOf(const Audit& audit)
{
    Json losses = Json::array();
    for (const FieldDifference& loss : audit.losses)
        losses.push_back({{"id", loss.id},
                          {"name", loss.property},
                          {"type", loss.type},
                          {"field", loss.field},
                          {"before", loss.before},
                          {"after", loss.after}});
    return {{"properties", audit.properties}, {"characters", audit.characters}, {"loadsWhole", audit.loadsWhole},
            {"savesEqual", audit.savesEqual}, {"faults", audit.faults},         {"losses", losses}};
}

void PrintAudit(const Audit& audit, bool isSummary, const Console& console)
{
    Table losses({{"id", true}, {"name"}, {"type"}, {"field"}, {"before"}, {"after"}});
    for (const FieldDifference& loss : audit.losses)
        losses.Add({std::to_string(loss.id), OneLine(loss.property, kValueColumns), loss.type, loss.field,
                    OneLine(loss.before, kValueColumns), OneLine(loss.after, kValueColumns)});
    if (!isSummary && !losses.IsEmpty()) {
        losses.Print(console);
        console.out << '\n';
    }
    Table summary({{"lost", true}, {"type and field"}});
    for (const auto& [kind, count] : CountByKind(audit.losses))
        summary.Add({std::to_string(count), kind});
    if (!summary.IsEmpty()) {
        summary.Print(console);
        console.out << '\n';
    }
    for (const std::string& fault : audit.faults)
        console.out << console.Paint(Colour::Red, fault) << '\n';
    console.out << audit.properties << " properties, saved text of " << audit.characters << " characters; "
                << Counted(audit.losses.size(), "field") << " lost\n"
                << "the saved text " << (audit.loadsWhole ? "loads whole" : "does not load whole")
                << "; saved again it is " << (audit.savesEqual ? "equal" : "different") << '\n';
}

ExitStatus RunAudit(const AuditOptions& options, const Console& console)
{
    const LoadedTree loaded = OpenTree(options.inputs, console);
    const Audit audit = AuditTree(loaded);
    if (console.json)
        console.out << FormatJson(JsonOf(audit));
    else
        PrintAudit(audit, options.isSummary, console);
    const bool isFine = audit.losses.empty() && audit.loadsWhole && audit.savesEqual && loaded.isComplete;
    return isFine ? ExitStatus::Fine : ExitStatus::DataHasFaults;
}

} // namespace

void AddAuditCommand(CLI::App& tool, Action& chosen)
{
    const auto options = std::make_shared<AuditOptions>();
    CLI::App& command = AddCommand(tool, chosen, "audit", "Tells what a save and a load lose, with both values",
                                   kExamples, options, &RunAudit);
    AddTreeOptions(command, options->inputs);
    command.add_flag("--summary", options->isSummary, "Only how much is lost, by type and field");
}
