// GLib: a GNode for each setting with its value in a GValue, and a GHashTable that finds them (W1, W1d, W7, W8).
#include "benchmarks/Fixtures.h"
#include "benchmarks/PeerCases.h"

#include <glib-object.h>

#include <iterator>

namespace {

struct Record {
    int id;
    GValue value;
};

GType PointType()
{
    static const GType s_type = g_boxed_type_register_static(
        "BenchPoint", [](gpointer point) -> gpointer { return g_memdup2(point, 3 * sizeof(double)); },
        [](gpointer point) { g_free(point); });
    return s_type;
}

void SetValue(GValue& value, const Setting& setting)
{
    switch (setting.kind) {
    case Kind::Category: break;
    case Kind::Long:
    case Kind::Enum:
        g_value_init(&value, G_TYPE_INT);
        g_value_set_int(&value, setting.whole);
        break;
    case Kind::String:
        g_value_init(&value, G_TYPE_STRING);
        g_value_set_string(&value, setting.text.c_str());
        break;
    case Kind::Position: {
        const double point[3] = {setting.x, setting.y, setting.z};
        g_value_init(&value, PointType());
        g_value_set_boxed(&value, point);
        break;
    }
    default:
        g_value_init(&value, G_TYPE_DOUBLE);
        g_value_set_double(&value, setting.x);
        break;
    }
}

class Tree {
public:
    Tree() = default;
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;
    ~Tree() { Destroy(); }

    void Build(const SettingsData& data)
    {
        m_root = g_node_new(nullptr);
        m_byId = g_hash_table_new(g_direct_hash, g_direct_equal);
        // Behind the known last sibling: g_node_append would search for it.
        GNode* category = nullptr;
        GNode* group = nullptr;
        GNode* leaf = nullptr;
        for (const Setting& setting : data.settings) {
            auto* record = g_slice_new0(Record);
            record->id = setting.id;
            SetValue(record->value, setting);
            GNode* node = g_node_new(record);
            if (setting.parent < 0) {
                category = g_node_insert_after(m_root, category, node);
                group = leaf = nullptr;
            } else if (setting.kind == Kind::Category) {
                group = g_node_insert_after(category, group, node);
                leaf = nullptr;
            } else {
                leaf = g_node_insert_after(group, leaf, node);
            }
            g_hash_table_insert(m_byId, GINT_TO_POINTER(setting.id), node);
        }
    }

    void CopyFrom(const Tree& source)
    {
        m_byId = g_hash_table_new(g_direct_hash, g_direct_equal);
        m_root = g_node_copy_deep(source.m_root, CopyRecord, m_byId);
    }

    std::size_t Walk() const
    {
        std::size_t types = 0;
        g_node_traverse(m_root, G_PRE_ORDER, G_TRAVERSE_ALL, -1, Visit, &types);
        return types;
    }

    void Destroy()
    {
        if (!m_root)
            return;
        g_node_traverse(m_root, G_PRE_ORDER, G_TRAVERSE_ALL, -1, FreeRecord, nullptr);
        g_node_destroy(m_root);
        g_hash_table_destroy(m_byId);
        m_root = nullptr;
    }

private:
    static gpointer CopyRecord(gconstpointer from, gpointer byId)
    {
        auto* source = static_cast<const Record*>(from);
        if (!source)
            return nullptr;
        auto* record = g_slice_new0(Record);
        record->id = source->id;
        if (G_IS_VALUE(&source->value)) {
            g_value_init(&record->value, G_VALUE_TYPE(&source->value));
            g_value_copy(&source->value, &record->value);
        }
        g_hash_table_insert(static_cast<GHashTable*>(byId), GINT_TO_POINTER(record->id), record);
        return record;
    }

    static gboolean Visit(GNode* node, gpointer types)
    {
        if (auto* record = static_cast<const Record*>(node->data))
            *static_cast<std::size_t*>(types) += static_cast<std::size_t>(record->id) + 1;
        return FALSE;
    }

    static gboolean FreeRecord(GNode* node, gpointer)
    {
        if (auto* record = static_cast<Record*>(node->data)) {
            if (G_IS_VALUE(&record->value))
                g_value_unset(&record->value);
            g_slice_free(Record, record);
        }
        return FALSE;
    }

    GNode* m_root = nullptr;
    GHashTable* m_byId = nullptr;
};

struct BuiltTree : Tree {
    explicit BuiltTree(int64_t size) { Build(Shared<PlainA>(size)->Data()); }
};

} // namespace

void AddGlibCases(std::vector<Case>& cases)
{
    const auto count = [](int64_t size) { return static_cast<double>(size); };
    cases.push_back({"W1", "glib", [count](int64_t size) {
                         auto data = Shared<PlainA>(size);
                         const double before = HeapBytes();
                         Tree measured;
                         measured.Build(data->Data());
                         return Prepared{[data] {
                                             Tree tree;
                                             return Timed([&] { tree.Build(data->Data()); });
                                         },
                                         count(size),
                                         {{"bytes_per_item", (HeapBytes() - before) / count(size)}}};
                     }});
    cases.push_back({"W1d", "glib", [count](int64_t size) {
                         auto data = Shared<PlainA>(size);
                         return Prepared{[data] {
                                             Tree tree;
                                             tree.Build(data->Data());
                                             return Timed([&] { tree.Destroy(); });
                                         },
                                         count(size)};
                     }});
    cases.push_back({"W7", "glib", [count](int64_t size) {
                         auto tree = Shared<BuiltTree>(size);
                         return Prepared{[tree] { return Timed([&] { Keep(tree->Walk()); }); }, count(size)};
                     }});
    cases.push_back({"W8", "glib", [count](int64_t size) {
                         auto tree = Shared<BuiltTree>(size);
                         return Prepared{[tree] {
                                             Tree copy;
                                             return Timed([&] { copy.CopyFrom(*tree); });
                                         },
                                         count(size)};
                     }});
}
