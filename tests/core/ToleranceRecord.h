// A tolerance record of a host: starts empty and frees its nine datum names.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/com/Ole.h"

#include <initializer_list>

struct ToleranceRecord : SprpTolerance {
    ToleranceRecord() : SprpTolerance{} {}
    explicit ToleranceRecord(EprpToleranceType type) : ToleranceRecord() { eTolType = type; }
    ToleranceRecord(const ToleranceRecord&) = delete;
    ToleranceRecord& operator=(const ToleranceRecord&) = delete;
    ~ToleranceRecord()
    {
        for (SprpGDTInfo* gdt : {&GDTInfo_X, &GDTInfo_Y, &GDTInfo_Z})
            for (BSTR name : {gdt->bstrDatumPlane1, gdt->bstrDatumPlane2, gdt->bstrDatumPlane3})
                SysFreeString(name);
    }
};

/// Gives a record's datum field a name in place of the one that it holds.
inline void SetName(BSTR& field, TextView name)
{
    SysFreeString(field);
    field = SysAllocStringLen(name.data(), static_cast<UINT>(name.size()));
}
