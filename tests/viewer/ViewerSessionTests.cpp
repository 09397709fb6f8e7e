// A long session of a user and a host that do anything in any order, the host also inside of events. After each step
// the displayed rows are those that a plain model of the rules predicts.
//
// LV_VIEWER_STEPS in the environment sets the number of steps, LV_VIEWER_SEED where the chance begins.
#include "tests/viewer/SessionModel.h"
#include "tests/viewer/ViewerHost.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <random>

using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

unsigned Setting(const char* name, unsigned otherwise)
{
    const char* const value = std::getenv(name);
    return value ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : otherwise;
}

class Session {
public:
    explicit Session(unsigned seed) : m_random(seed)
    {
        NewForest();
        m_host.sink->reactions["PropertyExpandCollapse"] = [this] {
            LearnToggle();
            React();
        };
        for (const char* event : {"ExtendedInfoButtonClicked", "SelectionChanged", "MultiEditStart", "MultiEditEnd",
                                  "InPlaceEditStart", "InPlaceEditEnd"})
            m_host.On(event, [this] { React(); });
    }

    void Step()
    {
        m_armed = m_armed || Chance(50); // until an event comes
        if (Leaves().size() < 5 || Chance(1))
            NewForest();
        switch (Pick(18)) {
        case 0:
        case 1: ClickName(); break;
        case 2:
        case 3: ClickBox(); break;
        case 4: DoubleClick(); break;
        case 5:
        case 6: PressInList(); break;
        case 7: PressInList(); break;
        case 8: Turn(); break;
        case 9:
        case 10: OpenAndType(); break;
        case 11: TypeOn(); break;
        case 12: ClickButton(); break;
        case 13:
        case 14: ChangeVisibility(); break;
        case 15: HostCall(); break;
        case 16: HostCall(); break;
        default: ChangeValue(); break;
        }
        Pump();
    }
    std::vector<LONG> Displayed() const { return m_host.Rows(); }
    std::vector<LONG> Expected() const { return m_model.Rows(); }
    int RowsOfTheWindow() const { return m_host.ListWindow() ? m_host.List().GetCount() : 0; }
    /// What was done last, and the forest behind it as the model has it: v visible, c collapsed.
    std::string Told() const
    {
        std::string told = m_last;
        for (const SessionModel::Node& root : m_model.roots) {
            told += "\n" + ToldFlags(root) + (root.category ? " category" : "") + (root.rowStands ? "" : " gone") + ":";
            for (const SessionModel::Node& child : root.children)
                told += " " + ToldFlags(child);
        }
        return told;
    }
    const std::string& Last() const { return m_last; }
    int Reactions() const { return m_reactions; }
    /// Texts of all displayed rows are those of their properties.
    void ExpectTexts()
    {
        for (const LONG id : Displayed()) {
            if (!m_model.Find(id)->category) {
                EXPECT_EQ(m_host.DataOf(id), m_host.ValueOf(id)) << id;
            }
        }
    }

private:
    using Node = SessionModel::Node;

    static std::string ToldFlags(const Node& node)
    {
        return std::to_string(node.id) + (node.visible ? "v" : "") + (node.collapsed ? "c" : "");
    }

    unsigned Pick(std::size_t n)
    {
        return std::uniform_int_distribution<unsigned>(0, static_cast<unsigned>(n) - 1)(m_random);
    }
    bool Chance(unsigned percent) { return Pick(100) < percent; }

    void NewForest()
    {
        m_host.collections.clear();
        m_model.roots.clear();
        const unsigned roots = 6 + Pick(10);
        for (unsigned i = 0; i < roots; ++i) {
            const unsigned kind = Pick(3);
            Node root;
            root.id = ++m_nextId;
            root.category = kind == 0;
            m_host.Add(root.id, root.category ? E_PROP_DT_CATEGORY : E_PROP_DT_DOUBLE);
            for (unsigned children = kind == 2 ? 0 : 1 + Pick(5); children > 0; --children) {
                Node child;
                child.id = ++m_nextId;
                child.parent = root.id;
                m_host.Add(child.id, Chance(50) ? E_PROP_DT_LONG : E_PROP_DT_STRING_UNICODE, root.id,
                           E_PROP_EDIT_VALUE | (Chance(30) ? E_PROP_EDIT_SHOW_EXTENDED_INFO : 0));
                root.children.push_back(child);
            }
            m_model.roots.push_back(root);
        }
        Show();
    }

    bool HasWindow() const { return m_host.ListWindow() != nullptr; }
    LONG AnyRow()
    {
        const auto rows = Displayed();
        return rows.empty() ? -1 : rows[Pick(rows.size())];
    }
    LONG AnyParent()
    {
        std::vector<LONG> parents;
        for (const LONG id : Displayed()) {
            if (!m_model.Find(id)->children.empty())
                parents.push_back(id);
        }
        return parents.empty() ? -1 : parents[Pick(parents.size())];
    }
    std::vector<LONG> Leaves() const
    {
        std::vector<LONG> leaves;
        for (const Node& root : m_model.roots) {
            if (root.children.empty() && !root.category)
                leaves.push_back(root.id);
            for (const Node& child : root.children)
                leaves.push_back(child.id);
        }
        return leaves;
    }
    LONG AnyLeaf()
    {
        const auto leaves = Leaves();
        return leaves.empty() ? -1 : leaves[Pick(leaves.size())];
    }
    /// The focus leaves an open editor, which commits, and the host may act.
    void FocusTheList()
    {
        if (HasWindow())
            SetFocus(m_host.ListWindow());
        Pump();
    }
    /// Scrolls a row into view, as a user does before a click.
    bool BringIntoView(LONG id)
    {
        if (id < 0 || m_host.RowOf(id) < 0)
            return false;
        const Rect row = m_host.List().RowRect(m_host.RowOf(id));
        if (row.top < 0 || row.bottom > ClientRectOf(m_host.ListWindow()).bottom)
            m_host.List().SetTopIndex(m_host.RowOf(id));
        return true;
    }
    void ToggledFrom(unsigned generation, LONG id)
    {
        if (generation == m_model.generation)
            m_model.Toggle(id);
    }

    void ClickName()
    {
        const LONG id = AnyRow();
        Say("click " + std::to_string(id));
        if (BringIntoView(id))
            m_host.Click(id);
    }
    void ClickBox()
    {
        const LONG id = AnyParent();
        Say("click the box of " + std::to_string(id));
        if (!BringIntoView(id))
            return;
        const unsigned generation = m_model.generation;
        m_host.ClickBox(id);
        ToggledFrom(generation, id);
    }
    void DoubleClick()
    {
        FocusTheList();
        const LONG id = AnyRow();
        Say("double click " + std::to_string(id));
        if (!HasWindow() || !BringIntoView(id))
            return;
        const Rect name = m_host.List().RectsOf(m_host.RowOf(id)).name;
        const Point at{name.left + 10, name.top + 5};
        ClickAt(m_host.ListWindow(), at);
        // The first press may scroll the row away from under the pointer; then the second meets another row.
        if (!HasWindow() || m_host.Selected() != id || !m_host.List().RowRect(m_host.RowOf(id)).Contains(at))
            return;
        const unsigned generation = m_model.generation;
        const bool parent = !m_model.Find(id)->children.empty();
        SendMessageW(m_host.ListWindow(), WM_LBUTTONDBLCLK, MK_LBUTTON, At(at));
        SendMessageW(m_host.ListWindow(), WM_LBUTTONUP, 0, At(at));
        if (parent)
            ToggledFrom(generation, id);
    }
    void PressInList()
    {
        constexpr UINT kKeys[] = {VK_UP,   VK_DOWN,  VK_HOME, VK_END,    VK_PRIOR, VK_NEXT, VK_LEFT,
                                  VK_LEFT, VK_RIGHT, VK_F5,   VK_DELETE, VK_TAB,   VK_RIGHT};
        FocusTheList();
        if (!HasWindow())
            return;
        const UINT key = kKeys[Pick(std::size(kKeys))];
        const LONG id = m_host.Selected();
        Say("press " + std::to_string(key) + " on " + std::to_string(id));
        const Node* const node = m_model.Find(id);
        const bool toggles = node && !node->children.empty() &&
                             ((key == VK_LEFT && !node->collapsed) || (key == VK_RIGHT && node->collapsed));
        const unsigned generation = m_model.generation;
        SendMessageW(m_host.ListWindow(), WM_KEYDOWN, key, 1);
        if (toggles)
            ToggledFrom(generation, id);
    }
    void Turn()
    {
        Say("turn the wheel");
        const int distance = (Chance(50) ? -1 : 1) * 120 * static_cast<int>(1 + Pick(4));
        if (HasWindow())
            SendMessageW(m_host.ListWindow(), WM_MOUSEWHEEL, MAKEWPARAM(Chance(20) ? MK_CONTROL : 0, distance), 0);
    }
    void OpenAndType()
    {
        const LONG id = AnyLeaf();
        Say("edit " + std::to_string(id));
        m_host.control->SetSelectedProperty(id);
        m_host.control->DoInPlaceEdit();
        TypeOn();
    }
    void TypeOn()
    {
        const HWND edit = m_host.EditWindow();
        if (!edit || GetFocus() != edit)
            return;
        m_last += ", type";
        SendMessageW(edit, EM_SETSEL, 0, -1);
        TypeCharacters(std::to_wstring(Pick(100000)));
        if (Chance(60))
            SendMessageW(edit, WM_KEYDOWN, Chance(70) ? VK_RETURN : VK_ESCAPE, 1);
    }
    void ClickButton()
    {
        Say("click the button");
        if (const HWND button = HasWindow() ? GetDlgItem(m_host.ListWindow(), 506) : nullptr)
            ClickAt(button, {3, 3});
    }

    void ChangeVisibility()
    {
        const LONG id = AnyLeaf();
        if (id < 0)
            return;
        Node* const node = m_model.Find(id);
        Say((node->visible ? "hide " : "show ") + std::to_string(id));
        node->visible = !node->visible;
        const bool visible = node->visible;
        const LONG parent = node->parent;
        const unsigned generation = m_model.generation;
        m_host.SetVisible(id, visible);
        if (generation != m_model.generation)
            return;
        if (!visible)
            m_model.ChildWent(parent);
        else if (Node* const root = m_model.Find(parent < 0 ? id : parent))
            root->rowStands = true;
    }
    void Delete()
    {
        const LONG id = Chance(80) ? AnyLeaf() : AnyRow();
        if (!m_model.Find(id))
            return;
        Say("delete " + std::to_string(id));
        const Node node = *m_model.Find(id);
        const Node* const parent = m_model.Find(node.parent);
        // Of an expanded parent, a child without a row goes unnoticed.
        const bool noticed = parent && (parent->collapsed || node.visible);
        const unsigned generation = m_model.generation;
        m_model.Remove(id);
        m_host.Remove(id);
        if (noticed && generation == m_model.generation)
            m_model.ChildWent(node.parent);
    }
    void ChangeValue()
    {
        const LONG id = AnyLeaf();
        Say("change " + std::to_string(id));
        if (id > 0)
            m_host.Change(id, [&](IqorProperty* property) { SetString(property, std::to_wstring(Pick(1000))); });
    }
    void Show()
    {
        std::vector<IqorPropertyCollection*> pointers(m_host.collections.begin(), m_host.collections.end());
        EXPECT_EQ(m_host.control->ShowProperties(pointers.data(), static_cast<LONG>(pointers.size())), S_OK);
        m_model.Show();
    }
    void Clear()
    {
        EXPECT_EQ(m_host.control->Clear(), S_OK);
        m_model.Clear();
    }
    void ExpandOrCollapse()
    {
        if (m_model.roots.empty())
            return;
        const Node node = m_model.roots[Pick(m_model.roots.size())];
        const bool expand = Chance(50);
        Say((expand ? "expand " : "collapse ") + std::to_string(node.id));
        const unsigned generation = m_model.generation;
        const bool acts = m_model.shown && HasWindow() && !node.children.empty() && node.collapsed == expand;
        m_host.control->ExpandCollapseProperty(node.id, expand ? VARIANT_TRUE : VARIANT_FALSE);
        if (acts)
            ToggledFrom(generation, node.id);
    }
    void TakeTheWindow()
    {
        Say("take the window");
        CComPtr<IOleInPlaceObject> inPlace;
        EXPECT_EQ(m_host.control.QueryInterface(&inPlace), S_OK);
        inPlace->InPlaceDeactivate();
        m_model.hasWindow = false;
        ++m_model.generation;
        m_host.Activate();
        m_model.hasWindow = true;
        if (m_model.shown)
            m_model.MakeRows();
    }
    void HostCall()
    {
        IprpCollectionViewerCtrl& control = *m_host.control.p;
        switch (Pick(17)) {
        case 0: Say("clear"); return Clear();
        case 1:
        case 2: Say("show"); return Show();
        case 3:
        case 4:
        case 5: return ExpandOrCollapse();
        case 6:
        case 7: return Delete();
        case 8:
            Say("select");
            control.SetSelectedProperty(AnyRow());
            return;
        case 9:
            Say("end the edit");
            control.EndInPlaceEdit();
            return;
        case 10:
            Say("cancel the edit");
            control.CancelInPlaceEdit();
            return;
        case 11:
            Say("open the edit");
            control.DoInPlaceEdit();
            return;
        case 12:
            Say("allow editing");
            control.put_AllowEditing(Chance(70) ? VARIANT_TRUE : VARIANT_FALSE);
            return;
        case 13:
            Say("set the precision");
            control.put_Precision(static_cast<LONG>(Pick(7)));
            return;
        case 14:
            Say("refresh");
            control.Refresh();
            control.AutoFitDivider();
            return;
        case 15: return m_inside ? ChangeVisibility() : TakeTheWindow();
        default: ChangeVisibility(); return;
        }
    }

    /// The host acts inside of one event, then not until it is armed again.
    void React()
    {
        if (!std::exchange(m_armed, false))
            return;
        ++m_reactions;
        m_last += ", inside an event: ";
        m_inside = true;
        HostCall();
        m_inside = false;
    }
    void LearnToggle()
    {
        // "PropertyExpandCollapse <id> <collapsed>"
        const std::string& heard = m_host.sink->heard.back();
        const std::size_t blank = heard.find(' ');
        const LONG id = std::stol(heard.substr(blank + 1));
        const Node* const node = m_model.Find(id);
        if (node && node->category)
            m_model.remembered[id] = heard.ends_with("true");
        m_host.sink->heard.clear();
    }
    void Say(const std::string& what)
    {
        if (m_last.ends_with(": "))
            m_last += what;
        else
            m_last = what;
    }

    std::mt19937 m_random;
    ViewerHost m_host;
    SessionModel m_model;
    LONG m_nextId = 0;
    bool m_armed = false;
    bool m_inside = false; ///< of an event
    int m_reactions = 0;
    std::string m_last;
};

} // namespace

TEST(ViewerSession, ShowsWhatAPlainModelPredictsAfterEachStep)
{
    const unsigned steps = Setting("LV_VIEWER_STEPS", 1500);
    const unsigned seed = Setting("LV_VIEWER_SEED", 6);
    const RecordedAlerts alerts;
    const int windows = SubclassedWindow::LivingWindows();
    const int controls = ControlBase::LivingWindows();
    const int handles = LivingHandles::Count();
    const LONG objects = Module::LockCount();
    {
        Session session(seed);
        for (unsigned step = 0; step < steps; ++step) {
            session.Step();
            ASSERT_THAT(session.Displayed(), ElementsAreArray(session.Expected()))
                << "step " << step << " of seed " << seed << ": " << session.Told();
            ASSERT_EQ(session.RowsOfTheWindow(), static_cast<int>(session.Expected().size()));
            ASSERT_THAT(alerts.Boxes(), IsEmpty()) << "step " << step << ": " << session.Last();
            if (step % 100 == 0)
                session.ExpectTexts();
        }
        EXPECT_GT(session.Reactions(), static_cast<int>(steps / 10)) << "hosts hardly acted inside of events";
        std::printf("%u steps, %d of them with a host call inside an event\n", steps, session.Reactions());
    }
    EXPECT_EQ(SubclassedWindow::LivingWindows(), windows);
    EXPECT_EQ(ControlBase::LivingWindows(), controls);
    EXPECT_EQ(LivingHandles::Count(), handles);
    EXPECT_EQ(Module::LockCount(), objects);
}
