#include "samples/host/Shots.h"

#include "samples/host/ShotTools.h"
#include "tools/lvprop/Console.h"
#include "tools/lvprop/ToolError.h"

#include <algorithm>

using lumevor::Check;
using lumevor::Property;
using lumevor::Transaction;

namespace {

constexpr const OLECHAR* kFault = OLESTR("No stylus in the rack reaches this size.");
constexpr const OLECHAR* kWarning = OLESTR("Differs from the drawing.");

/// The rows that the states are made of: neighbours in one category, which all have a text box.
struct Cast {
    LONG category = 0;
    LONG number = 0;
    LONG second = 0;
    LONG third = 0;
};

bool IsOneOf(EprpPropDataType type, std::initializer_list<EprpPropDataType> types)
{
    return std::ranges::find(types, type) != types.end();
}

bool IsNumber(const Property& property)
{
    return IsOneOf(property.Type(), {E_PROP_DT_LINEAR, E_PROP_DT_ANGLE, E_PROP_DT_DOUBLE, E_PROP_DT_FULL_PRECISION});
}

bool HasTextBox(const Property& property)
{
    LONG flags = 0;
    Check(property->GetEditFlags(&flags));
    return property.IsVisible() && !property.IsReadOnly() && (flags & E_PROP_EDIT_VALUE) != 0 &&
           (IsNumber(property) || IsOneOf(property.Type(), {E_PROP_DT_STRING_ANSI, E_PROP_DT_STRING_UNICODE}));
}

/// Fills the cast of a category's children; false when they are too few.
bool CastFrom(const Property& category, Cast& cast)
{
    cast = {category.Id()};
    for (const Property& child : category.Children()) {
        if (!HasTextBox(child))
            continue;
        if (cast.number == 0 && IsNumber(child))
            cast.number = child.Id();
        else if (cast.second == 0)
            cast.second = child.Id();
        else if (cast.third == 0)
            cast.third = child.Id();
    }
    return cast.number != 0 && cast.third != 0;
}

/// The first category with enough rows to type into.
Cast ChooseCast(const Document& document)
{
    const Transaction transaction(document.Collection());
    Cast cast;
    for (const Property& category : document.Collection().Descendants()) {
        if (CastFrom(category, cast))
            return cast;
    }
    throw ToolError(ExitStatus::WrongUse,
                    document.Path() + ": pictures need a category with a number and two more values to type into");
}

/// The same document opened anew for each picture, so that none depends on the one before.
class Shots {
public:
    explicit Shots(Stage& stage) : m_stage(stage), m_path(stage.Window().TheDocument()->Path()) {}

    void TakeAll()
    {
        Plan();
        Editing();
        InvalidAndWarning();
        CollapsedWithErrors();
        ReadOnly();
        FocusLost();
        Zoomed();
        Imperial();
        Overview();
        Empty();
    }

private:
    /// Open and closed categories, as a user leaves them.
    void Plan()
    {
        Begin();
        m_stage.Take("metric-plan");
    }

    void Editing()
    {
        Begin();
        StartEditing(m_cast.number);
        m_stage.Type(NumberBeside(0.125));
        m_stage.Take("edit-in-progress");
        m_stage.Press(VK_ESCAPE);
    }

    void InvalidAndWarning()
    {
        Begin();
        MakeFaults();
        Select(m_cast.third);
        m_stage.Take("invalid-and-warning");
    }

    void CollapsedWithErrors()
    {
        Begin();
        MakeFaults();
        Select(m_cast.category);
        m_stage.Press(VK_LEFT);
        m_stage.Take("collapsed-with-errors");
    }

    void ReadOnly()
    {
        Begin();
        {
            const Transaction transaction(Collection());
            for (const Property& child : Collection().At(m_cast.category).Children())
                child.SetReadOnly(true);
        }
        Select(m_cast.second);
        m_stage.Take("read-only");
    }

    void FocusLost()
    {
        Begin();
        Select(m_cast.number);
        m_stage.FocusEvents();
        m_stage.Take("focus-lost");
    }

    void Zoomed()
    {
        Begin();
        constexpr int kSteps = 3;
        for (int step = 0; step < kSteps; ++step)
            m_stage.Window().Run(Command::ZoomIn);
        m_stage.Window().Run(Command::FitNames);
        Select(m_cast.second);
        m_stage.Take("zoomed");
        for (int step = 0; step < kSteps; ++step)
            m_stage.Window().Run(Command::ZoomOut);
    }

    void Imperial()
    {
        Begin();
        m_stage.Window().Run(Command::Imperial);
        Select(m_cast.number);
        m_stage.Take("imperial");
    }

    /// All open, values typed and heard of, a fault that the host has found.
    void Overview()
    {
        Begin();
        m_stage.Window().Run(Command::ExpandAll);
        for (const double step : {0.5, 0.25}) {
            const std::wstring text = NumberBeside(step);
            StartEditing(m_cast.number);
            m_stage.Type(text);
            m_stage.Press(VK_RETURN);
        }
        {
            const Transaction transaction(Collection());
            Collection().At(m_cast.number).SetErrorText(kFault);
        }
        Select(m_cast.number);
        m_stage.Take("overview");
    }

    void Empty()
    {
        m_stage.Window().Close();
        m_stage.Take("empty");
    }

    void Begin()
    {
        m_stage.Window().Open(m_path);
        m_cast = ChooseCast(TheDocument());
        m_stage.Window().Run(Command::CollapseAll);
        ExpandTo(m_cast.category);
        SendMessageW(m_stage.TheGrid().RowsWindow(), WM_VSCROLL, SB_TOP, 0);
        Select(m_cast.category);
    }

    void MakeFaults()
    {
        const Transaction transaction(Collection());
        Collection().At(m_cast.number).SetErrorText(kFault);
        Collection().At(m_cast.second).SetWarningText(kWarning);
    }

    /// From the outermost category inwards: a row can be expanded once it is shown.
    void ExpandTo(LONG id)
    {
        LONG parent = E_PROP_ID_TOP_LEVEL;
        {
            const Transaction transaction(Collection());
            parent = Collection().At(id).ParentId();
        }
        if (parent > 0)
            ExpandTo(parent);
        Check(m_stage.TheGrid()->ExpandCollapseProperty(id, VARIANT_TRUE));
    }

    void Select(LONG id)
    {
        m_stage.FocusGrid();
        const Point name = NamePoint(id);
        m_stage.ClickRows(name);
        m_stage.Await([&] { return m_stage.TheGrid().Selected() == id; }, "a row to be selected");
    }

    void StartEditing(LONG id)
    {
        Select(id);
        m_stage.Press(VK_RETURN);
        m_stage.Await(
            [this] {
                LONG_PTR box = 0;
                Check(m_stage.TheGrid()->GetInPlaceEditHWND(&box));
                return box != 0 && GetFocus() == reinterpret_cast<HWND>(box);
            },
            "the text box");
    }

    /// The present value and a bit, as a user would type it.
    std::wstring NumberBeside(double step)
    {
        const Transaction transaction(Collection());
        return lumevor::FromUtf8(NumberText(Collection().At(m_cast.number).Double() + step));
    }

    /// A point in the name of a row; the row is scrolled into sight first.
    Point NamePoint(LONG id)
    {
        Check(m_stage.TheGrid()->SetSelectedProperty(id));
        const auto place = m_stage.TheGrid().PlaceOf(id);
        if (!place)
            throw ToolError(ExitStatus::DataHasFaults, NameForMessages(id) + " has no row");
        return {place->left - 20, (place->top + place->bottom) / 2};
    }

    Document& TheDocument() { return *m_stage.Window().TheDocument(); }
    const lumevor::Collection& Collection() { return TheDocument().Collection(); }

    Stage& m_stage;
    std::string m_path;
    Cast m_cast;
};

} // namespace

void TakeShots(MainWindow& window, const std::string& folder)
{
    if (!window.TheDocument())
        throw ToolError(ExitStatus::WrongUse, "pictures need a routine");
    Stage stage(window, folder);
    Shots(stage).TakeAll();
}
