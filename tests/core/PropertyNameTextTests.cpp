// The grammar of names: from the name as given to its forms.
#include "core/PropertyNameText.h"

#include <gmock/gmock.h>

#include <random>

namespace {

PropertyNameForms FormsOf(TextView raw)
{
    PropertyNameForms forms;
    EXPECT_TRUE(ParseNameText(raw, forms));
    return forms;
}

/// The forms of a name whose note has no end.
PropertyNameForms BrokenFormsOf(TextView raw)
{
    PropertyNameForms forms;
    EXPECT_FALSE(ParseNameText(raw, forms));
    return forms;
}

Text Marked(TextView rest)
{
    return Text(OLESTR("[MACRO REPORT PROP]")).append(rest);
}

struct Example {
    const OLECHAR* raw; ///< without the marker
    const OLECHAR* full;
    const OLECHAR* stripped;
    const OLECHAR* macroPost;
    const OLECHAR* report;
};

void ExpectForms(const PropertyNameForms& forms, const Example& wanted)
{
    EXPECT_EQ(forms.full, wanted.full);
    EXPECT_EQ(forms.stripped, wanted.stripped);
    EXPECT_EQ(forms.macroPost, wanted.macroPost);
    EXPECT_EQ(forms.report, wanted.report);
}

} // namespace

TEST(PlainName, LosesItsNoteInAllFormsButTheFullOne)
{
    const Example examples[] = {
        {OLESTR("Probe depth (mm)"), OLESTR("Probe depth (mm)"), OLESTR("Probe depth"), OLESTR("Probe depth"),
         OLESTR("Probe depth")},
        {OLESTR("(mm) Depth"), OLESTR("(mm) Depth"), OLESTR("Depth"), OLESTR("Depth"), OLESTR("Depth")},
        {OLESTR("A (b) c"), OLESTR("A (b) c"), OLESTR("A  c"), OLESTR("A  c"), OLESTR("A  c")},
        {OLESTR("(all)"), OLESTR("(all)"), OLESTR(""), OLESTR(""), OLESTR("")},
    };
    for (const Example& example : examples) {
        ExpectForms(FormsOf(example.raw), example);
        EXPECT_FALSE(FormsOf(example.raw).bMacroReportProperty);
    }
}

TEST(PlainName, IsTrimmedInTheStrippedFormWithAndWithoutANoteAndNeverInTheFullForm)
{
    ExpectForms(FormsOf(OLESTR(" \tDepth\r\n")),
                {nullptr, OLESTR(" \tDepth\r\n"), OLESTR("Depth"), OLESTR("Depth"), OLESTR("Depth")});
    ExpectForms(FormsOf(OLESTR(" Depth (mm) ")),
                {nullptr, OLESTR(" Depth (mm) "), OLESTR("Depth"), OLESTR("Depth"), OLESTR("Depth")});
}

TEST(PlainName, KeepsASecondNoteInEveryForm)
{
    ExpectForms(FormsOf(OLESTR("Depth (a) (b)")),
                {nullptr, OLESTR("Depth (a) (b)"), OLESTR("Depth  (b)"), OLESTR("Depth  (b)"), OLESTR("Depth  (b)")});
}

TEST(PlainName, EndsItsNoteAtTheFirstBracket)
{
    EXPECT_EQ(FormsOf(OLESTR("A ((b) c)")).stripped, OLESTR("A  c)"));
    EXPECT_EQ(FormsOf(OLESTR("A) b (c)")).stripped, OLESTR("A) b"));
    EXPECT_EQ(FormsOf(OLESTR("A) b")).stripped, OLESTR("A) b"));
}

TEST(PlainName, KeepsOperatorsAndBars)
{
    ExpectForms(FormsOf(OLESTR("X-Y | Z")),
                {nullptr, OLESTR("X-Y | Z"), OLESTR("X-Y | Z"), OLESTR("X-Y | Z"), OLESTR("X-Y | Z")});
}

TEST(PlainName, WithoutAnEndOfItsNoteKeepsTheWholeTextInTheFullAndTheStrippedForm)
{
    ExpectForms(BrokenFormsOf(OLESTR(" Depth (mm")),
                {nullptr, OLESTR(" Depth (mm"), OLESTR(" Depth (mm"), OLESTR(""), OLESTR("")});
    ExpectForms(BrokenFormsOf(OLESTR(") (")), {nullptr, OLESTR(") ("), OLESTR(") ("), OLESTR(""), OLESTR("")});
}

TEST(EmptyName, HasEmptyForms)
{
    PropertyNameForms forms = FormsOf(Marked(OLESTR("Bore")));
    EXPECT_TRUE(ParseNameText({}, forms));
    ExpectForms(forms, {nullptr, OLESTR(""), OLESTR(""), OLESTR(""), OLESTR("")});
    EXPECT_FALSE(forms.bMacroReportProperty);
}

TEST(MacroReportName, IsToldByTheMarkerAtTheVeryStart)
{
    EXPECT_TRUE(FormsOf(Marked(OLESTR("Bore"))).bMacroReportProperty);
    EXPECT_FALSE(FormsOf(OLESTR(" [MACRO REPORT PROP]Bore")).bMacroReportProperty);
    EXPECT_FALSE(FormsOf(OLESTR("Bore [MACRO REPORT PROP]")).bMacroReportProperty);
    EXPECT_FALSE(FormsOf(OLESTR("[Macro Report Prop]Bore")).bMacroReportProperty);
    EXPECT_FALSE(FormsOf(OLESTR("[MACRO REPORT PROP")).bMacroReportProperty);
    EXPECT_EQ(FormsOf(OLESTR("Bore [MACRO REPORT PROP]")).macroPost, OLESTR("Bore [MACRO REPORT PROP]"));
}

TEST(MacroReportName, HasAFormForEachReader)
{
    const Example examples[] = {
        {OLESTR("Bore size (X+Y)"), OLESTR("Bore size (X+Y)"), OLESTR("Bore size"), OLESTR("Boresize"),
         OLESTR("Bore size")},
        {OLESTR("Bore X-dim | Size"), OLESTR("Bore X-dim : Size"), OLESTR("Bore X-dim : Size"), OLESTR("BoreXdim"),
         OLESTR("Size")},
        {OLESTR(" Bore (mm) | Size (mm) "), OLESTR("Bore (mm) : Size (mm)"), OLESTR("Bore : Size (mm)"), OLESTR("Bore"),
         OLESTR("Size (mm)")},
        {OLESTR("A|B|C"), OLESTR("A : B|C"), OLESTR("A : B|C"), OLESTR("A"), OLESTR("B|C")},
        {OLESTR("|Size"), OLESTR(" : Size"), OLESTR(" : Size"), OLESTR(""), OLESTR("Size")},
    };
    for (const Example& example : examples) {
        const PropertyNameForms forms = FormsOf(Marked(example.raw));
        ExpectForms(forms, example);
        EXPECT_TRUE(forms.bMacroReportProperty);
    }
}

TEST(MacroReportName, OfTheMarkerAloneIsEmptyAndStillAMacroReportName)
{
    const PropertyNameForms forms = FormsOf(Marked({}));
    ExpectForms(forms, {nullptr, OLESTR(""), OLESTR(""), OLESTR(""), OLESTR("")});
    EXPECT_TRUE(forms.bMacroReportProperty);
}

TEST(MacroReportName, WithAnEmptyReportTextKeepsItsBarInTheFullForm)
{
    ExpectForms(FormsOf(Marked(OLESTR("A|"))), {nullptr, OLESTR("A|"), OLESTR("A"), OLESTR("A"), OLESTR("A")});
    ExpectForms(FormsOf(Marked(OLESTR("A | \t"))), {nullptr, OLESTR("A | \t"), OLESTR("A"), OLESTR("A"), OLESTR("A")});
}

TEST(MacroReportName, LosesBlanksQuotesAndOperatorsInItsToken)
{
    EXPECT_EQ(FormsOf(Marked(OLESTR("a b'c+d-e*f/g=h"))).macroPost, OLESTR("abcdefgh"));
    EXPECT_EQ(FormsOf(Marked(OLESTR("a\"b,c.d:e"))).macroPost, OLESTR("a\"b,c.d:e"));
}

TEST(MacroReportName, MapsWhiteSpaceOtherThanBlanksToASign)
{
    EXPECT_EQ(FormsOf(Marked(OLESTR("a\tb"))).macroPost, OLESTR("a@b"));
}

TEST(MacroReportName, MapsItsTokenToAsciiAndNothingElse)
{
    // Latin letters become their base letter, everything above 255 a sign.
    ExpectForms(FormsOf(Marked(OLESTR("Gr\u00F6\u00DFe \u03A9"))),
                {nullptr, OLESTR("Gr\u00F6\u00DFe \u03A9"), OLESTR("Gr\u00F6\u00DFe \u03A9"), OLESTR("Grose@"),
                 OLESTR("Gr\u00F6\u00DFe \u03A9")});
    EXPECT_EQ(FormsOf(OLESTR("Gr\u00F6\u00DFe")).macroPost, OLESTR("Gr\u00F6\u00DFe"));
    EXPECT_EQ(FormsOf(Marked(OLESTR("a@b\u00B1"))).macroPost, OLESTR("a@b@"));
}

TEST(MacroReportName, KeepsANoteThatStandsInItsReportText)
{
    ExpectForms(FormsOf(Marked(OLESTR("Bore|Size (mm)"))),
                {nullptr, OLESTR("Bore : Size (mm)"), OLESTR("Bore : Size (mm)"), OLESTR("Bore"), OLESTR("Size (mm)")});
}

TEST(MacroReportName, SeeksTheEndOfItsNoteAheadOfTheBarAlone)
{
    ExpectForms(BrokenFormsOf(Marked(OLESTR("Bore (a| b) c"))),
                {nullptr, OLESTR("Bore (a| b) c"), OLESTR("Bore (a"), OLESTR(""), OLESTR("b) c")});
}

TEST(MacroReportName, WithoutAnEndOfItsNoteIsStillAMacroReportName)
{
    const PropertyNameForms forms = BrokenFormsOf(Marked(OLESTR(" Bore (mm")));
    ExpectForms(forms, {nullptr, OLESTR(" Bore (mm"), OLESTR(" Bore (mm"), OLESTR(""), OLESTR("")});
    EXPECT_TRUE(forms.bMacroReportProperty);
}

TEST(MacroReportName, MayHoldTheMarkerTwice)
{
    EXPECT_EQ(FormsOf(Marked(Marked(OLESTR("A")))).full, Marked(OLESTR("A")));
}

TEST(RandomNames, KeepWhatTheGrammarPromises)
{
    constexpr TextView alphabet = OLESTR(" ()|ab'+\t\u00E4\u03A9");
    std::mt19937 random(12);
    for (int round = 0; round < 20000; ++round) {
        Text rest;
        for (std::size_t length = random() % 12; length != 0; --length)
            rest += alphabet[random() % alphabet.size()];
        const bool macro = (random() & 1) != 0;
        PropertyNameForms forms;
        const bool complete = ParseNameText(macro ? Marked(rest) : rest, forms);
        ASSERT_EQ(forms.bMacroReportProperty, macro);
        if (!complete) {
            ASSERT_EQ(forms.full, rest);
            ASSERT_TRUE(forms.macroPost.empty());
            ASSERT_NE(rest.find(OLECHAR{'('}), Text::npos);
        } else if (macro) {
            for (const OLECHAR unit : forms.macroPost)
                ASSERT_TRUE(unit >= '!' && unit <= '~' && TextView(OLESTR("'+-*/=")).find(unit) == TextView::npos);
            ASSERT_TRUE(forms.stripped == forms.report || forms.stripped.ends_with(OLESTR(" : ") + forms.report));
        } else {
            ASSERT_EQ(forms.full, rest);
            ASSERT_EQ(forms.stripped, forms.report);
            ASSERT_EQ(forms.stripped, forms.macroPost);
        }
    }
}
