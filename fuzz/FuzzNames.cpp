// Any text as a property's name, plain and with the marker ahead of it: the forms keep what the grammar promises.
#include "core/PropertyNameText.h"
#include "fuzz/FuzzInput.h"

namespace {

constexpr TextView kMarker = OLESTR("[MACRO REPORT PROP]");

void RequirePlainForms(TextView raw, bool complete, const PropertyNameForms& forms)
{
    Require(forms.full == raw);
    Require(forms.macroPost == forms.report);
    if (complete)
        Require(forms.stripped == forms.report && forms.stripped.size() <= raw.size());
    else
        Require(forms.stripped == raw && forms.report.empty());
}

void RequireMacroReportForms(TextView rest, bool complete, const PropertyNameForms& forms)
{
    if (!complete) {
        Require(forms.full == rest && forms.macroPost.empty());
        return;
    }
    for (const OLECHAR unit : forms.macroPost)
        Require(unit > ' ' && unit <= '~' && TextView(OLESTR("'+-*/=")).find(unit) == TextView::npos);
    Require(forms.stripped == forms.report || forms.stripped.ends_with(OLESTR(" : ") + forms.report));
}

void RequireForms(TextView raw)
{
    PropertyNameForms forms;
    const bool complete = ParseNameText(raw, forms);
    Require(forms.bMacroReportProperty == raw.starts_with(kMarker));
    Require(complete || raw.find(OLECHAR{'('}) != TextView::npos);
    if (forms.bMacroReportProperty)
        RequireMacroReportForms(raw.substr(kMarker.size()), complete, forms);
    else
        RequirePlainForms(raw, complete, forms);

    PropertyNameForms again = forms;
    Require(ParseNameText(raw, again) == complete && again.full == forms.full && again.stripped == forms.stripped &&
            again.macroPost == forms.macroPost && again.report == forms.report);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const InputText input(data, size);
    RequireForms(input.View());
    RequireForms(Text(kMarker).append(input.View()));
    return 0;
}
