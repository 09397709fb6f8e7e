// The type library that the server carries says the same as the header: methods in slot order, enumerators, records.
#include "platform/atl/ComPtr.h"
#include "tests/idl/HeaderReader.h"
#include "tests/idl/RecordTable.h"

#include <gmock/gmock.h>

#include <map>

namespace {

std::string Narrow(TextView text)
{
    return std::string(text.begin(), text.end());
}

class TypeLibrary : public testing::Test {
protected:
    void SetUp() override
    {
        const std::string path = LV_TYPE_LIBRARY;
        const std::wstring wide(path.begin(), path.end());
        ASSERT_EQ(LoadTypeLibEx(wide.c_str(), REGKIND_NONE, &m_library), S_OK) << path;
    }
    CComPtr<ITypeInfo> Find(const std::string& name)
    {
        std::wstring wide(name.begin(), name.end());
        CComPtr<ITypeInfo> info;
        MEMBERID member = 0;
        USHORT count = 1;
        EXPECT_EQ(m_library->FindName(wide.data(), 0, &info, &member, &count), S_OK);
        EXPECT_EQ(count, 1) << name;
        return info;
    }
    /// For a dual interface the description of its slots instead of its late bound face.
    static CComPtr<ITypeInfo> Slots(CComPtr<ITypeInfo> info)
    {
        HREFTYPE type = 0;
        CComPtr<ITypeInfo> slots;
        if (info && info->GetRefTypeOfImplType(static_cast<UINT>(-1), &type) == S_OK &&
            info->GetRefTypeInfo(type, &slots) == S_OK)
            return slots;
        return info;
    }
    static std::string NameOf(ITypeInfo* info, MEMBERID member)
    {
        CComBSTR name;
        EXPECT_EQ(info->GetDocumentation(member, &name, nullptr, nullptr, nullptr), S_OK);
        return Narrow(name.View());
    }

    HeaderReader m_header{LV_GENERATED_HEADER};
    CComPtr<ITypeLib> m_library;
};

} // namespace

TEST_F(TypeLibrary, HasTheGivenIdAndDescription)
{
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(m_library->GetLibAttr(&attributes), S_OK);
    const GUID expected{0x6BF3489F, 0x9271, 0x4DAC, {0x99, 0x17, 0xC0, 0x91, 0x66, 0xC5, 0x46, 0x0D}};
    EXPECT_TRUE(attributes->guid == expected);
    m_library->ReleaseTLibAttr(attributes);
    CComBSTR description;
    EXPECT_EQ(m_library->GetDocumentation(-1, nullptr, &description, nullptr, nullptr), S_OK);
    EXPECT_EQ(Narrow(description.View()), "Lumevor Property Collection Type Library");
}

TEST_F(TypeLibrary, HasTheMethodsOfEachInterfaceInSlotOrder)
{
    ASSERT_FALSE(m_header.Empty());
    for (const DeclaredInterface& declared : m_header.Interfaces()) {
        const CComPtr<ITypeInfo> info = Slots(Find(declared.name));
        ASSERT_TRUE(info) << declared.name;
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        std::map<int, std::string> bySlot;
        for (UINT i = 0; i < attributes->cFuncs; ++i) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(info->GetFuncDesc(i, &function), S_OK);
            std::string name = NameOf(info, function->memid);
            if (function->invkind == INVOKE_PROPERTYGET)
                name = "get_" + name;
            if (function->invkind == INVOKE_PROPERTYPUT)
                name = "put_" + name;
            if (function->invkind == INVOKE_PROPERTYPUTREF)
                name = "putref_" + name;
            bySlot[function->oVft] = name;
            info->ReleaseFuncDesc(function);
        }
        info->ReleaseTypeAttr(attributes);
        std::vector<std::string> methods;
        for (const auto& [slot, name] : bySlot)
            methods.push_back(name);
        EXPECT_EQ(methods, declared.methods) << declared.name;
    }
}

TEST_F(TypeLibrary, HasEveryEnumeratorWithItsValue)
{
    for (const DeclaredEnum& declared : m_header.Enums()) {
        const CComPtr<ITypeInfo> info = Find(declared.name);
        ASSERT_TRUE(info) << declared.name;
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        std::vector<std::pair<std::string, long long>> values;
        for (UINT i = 0; i < attributes->cVars; ++i) {
            VARDESC* variable = nullptr;
            ASSERT_EQ(info->GetVarDesc(i, &variable), S_OK);
            values.emplace_back(NameOf(info, variable->memid), V_I4(variable->lpvarValue));
            info->ReleaseVarDesc(variable);
        }
        info->ReleaseTypeAttr(attributes);
        EXPECT_EQ(values, declared.values) << declared.name;
    }
}

TEST_F(TypeLibrary, HasEveryRecordFieldAtItsPlace)
{
    for (const RecordPlace& record : kRecords) {
        const CComPtr<ITypeInfo> info = Find(record.name);
        ASSERT_TRUE(info) << record.name;
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->cbSizeInstance, record.size) << record.name;
        ASSERT_EQ(attributes->cVars, record.fields.size()) << record.name;
        for (UINT i = 0; i < attributes->cVars; ++i) {
            VARDESC* variable = nullptr;
            ASSERT_EQ(info->GetVarDesc(i, &variable), S_OK);
            EXPECT_EQ(NameOf(info, variable->memid), record.fields[i].name);
            EXPECT_EQ(variable->oInst, record.fields[i].offset) << record.name << " " << record.fields[i].name;
            info->ReleaseVarDesc(variable);
        }
        info->ReleaseTypeAttr(attributes);
    }
}

TEST_F(TypeLibrary, DescribesEveryMethod)
{
    for (const DeclaredInterface& declared : m_header.Interfaces()) {
        const CComPtr<ITypeInfo> info = Slots(Find(declared.name));
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        for (UINT i = 0; i < attributes->cFuncs; ++i) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(info->GetFuncDesc(i, &function), S_OK);
            CComBSTR help;
            EXPECT_EQ(info->GetDocumentation(function->memid, nullptr, &help, nullptr, nullptr), S_OK);
            EXPECT_FALSE(help.View().empty()) << declared.name << " " << NameOf(info, function->memid);
            info->ReleaseFuncDesc(function);
        }
        info->ReleaseTypeAttr(attributes);
    }
}

TEST_F(TypeLibrary, DescribesEveryInterfaceEnumerationRecordAndClass)
{
    std::map<TYPEKIND, int> described;
    for (UINT i = 0; i < m_library->GetTypeInfoCount(); ++i) {
        CComBSTR name;
        CComBSTR help;
        ASSERT_EQ(m_library->GetDocumentation(static_cast<INT>(i), &name, &help, nullptr, nullptr), S_OK);
        EXPECT_FALSE(help.View().empty()) << Narrow(name.View());
        TYPEKIND kind{};
        ASSERT_EQ(m_library->GetTypeInfoType(i, &kind), S_OK);
        ++described[kind];
    }
    for (const TYPEKIND kind : {TKIND_ENUM, TKIND_RECORD, TKIND_INTERFACE, TKIND_DISPATCH, TKIND_COCLASS})
        EXPECT_GT(described[kind], 0) << kind;
}
