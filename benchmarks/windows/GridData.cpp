#include "benchmarks/windows/GridData.h"

#include <string>
#include <utility>

namespace {

constexpr int kValuesToACategory = 16;

/// The values of the plain data, with every sixteen in a category of their own.
SettingsData MakeFlatData(int64_t values)
{
    const SettingsData plain = MakePlainData(values);
    SettingsData flat;
    flat.values = values;
    int32_t nextId = 1025;
    int32_t category = 0;
    int inCategory = kValuesToACategory;
    for (Setting setting : plain.settings) {
        if (setting.kind == Kind::Category)
            continue;
        if (inCategory == kValuesToACategory) {
            inCategory = 0;
            category = nextId++;
            Setting heading{};
            heading.id = category;
            heading.parent = E_PROP_ID_TOP_LEVEL;
            heading.kind = Kind::Category;
            heading.visible = true;
            flat.settings.push_back(heading);
        }
        ++inCategory;
        setting.id = nextId++;
        setting.parent = category;
        setting.visible = true;
        flat.settings.push_back(std::move(setting));
    }
    return flat;
}

} // namespace

GridData::GridData(int64_t values) : m_data(MakeFlatData(values)), m_collection(FilledCollection(m_data))
{
    const OpenTransaction open(*m_collection);
    Dice dice(7);
    std::vector<std::size_t> reals;
    for (const Setting& setting : Settings()) {
        GridRow row{setting.kind == Kind::Category, {}, {}};
        row.name = (row.isCategory ? OLESTR("Category ") : OLESTR("Property ")) + std::to_wstring(setting.id);
        const CComPtr<IqorProperty> property = PropertyOf(*m_collection, setting.id);
        MustSucceed(property->SetPropertyName(CComBSTR(row.name)), "SetPropertyName");
        CComBSTR text;
        MustSucceed(property->GetPropertyString(&text), "GetPropertyString");
        row.data = Text(text.View());
        if (setting.IsReal())
            reals.push_back(m_rows.size());
        m_rows.push_back(std::move(row));
    }
    for (int i = 0; i < kBatchSize; ++i)
        m_changing.push_back(reals[dice.Below(static_cast<uint32_t>(reals.size()))]);
}

void GiveValues(const GridData& data, double start)
{
    for (const std::size_t place : data.Changing()) {
        EprpPropError error = E_PROP_ERROR_NONE;
        IqorProperty* property = nullptr;
        MustSucceed(data.Collection().GetProperty(data.Settings()[place].id, &error, &property), "GetProperty");
        MustSucceed(property->SetPropertyDouble(start, &error), "SetPropertyDouble");
        property->Release();
        start += 1.25;
    }
}
