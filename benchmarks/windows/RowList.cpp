#include "benchmarks/windows/RowList.h"

#include "list/RowFactory.h"
#include "platform/win/Reflection.h"

RowList::RowList(const GridData& data)
    : m_data(data), m_parent([this](UINT message, WPARAM wParam, LPARAM lParam, LRESULT& answer) {
          const auto reflected = ReflectToChild(m_parent.Handle(), message, wParam, lParam);
          answer = reflected.value_or(0);
          return reflected.has_value();
      })
{
    for (const Setting& setting : data.Settings()) {
        auto node = std::make_unique<CprpMultiplePropInfo>();
        node->m_eDataType = static_cast<EprpPropDataType>(setting.kind);
        node->m_nPropertyID = setting.id;
        node->m_listCollections.emplace_back(&data.Collection());
        m_nodes.push_back(std::move(node));
    }
    m_list.m_eListType = ListType::PropertyList;
    m_list.m_settings.m_crGridLine = 0xC4C4C4;
    m_list.m_settings.m_crReadOnlyData = 0x787878;
    m_list.SetBackground(0xFFFFFF);
    m_list.m_bAllowEditing = true;
    m_list.Create(kGridStyle, {0, 0, kGridWidth, kGridHeight}, m_parent.Handle(), kGridId, this);
    m_list.SetListFont(GridFont());
}

RowList::~RowList()
{
    m_list.Clear();
    m_list.Destroy();
}

void RowList::Fill()
{
    CqorLBItem* category = nullptr;
    for (const auto& node : m_nodes) {
        const bool isCategory = node->m_eDataType == E_PROP_DT_CATEGORY;
        auto made = MakePropItem(node->m_eDataType, this, &m_list, isCategory ? nullptr : category);
        made->m_pPropInfo = node.get();
        node->m_pItem = made.get();
        if (isCategory)
            category = &m_list.AddRoot(std::move(made));
        else
            category->AddChild(std::move(made));
    }
    const CqorODListBox::FillScope fill(m_list);
    for (const auto& root : m_list.Roots())
        m_list.ShowItem(*root);
    m_list.RefreshAll();
}

void RowList::Change(double start)
{
    {
        const OpenTransaction open(m_data.Collection());
        GiveValues(m_data, start);
    }
    {
        const CqorODListBox::RedrawHold hold(m_list);
        for (const std::size_t place : m_data.Changing())
            m_nodes[place]->m_pItem->Refresh();
    }
    Repaint();
}
