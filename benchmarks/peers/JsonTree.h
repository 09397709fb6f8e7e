// The data as a JSON document that carries what a saved record carries: flags, edit flags, type and value.
#pragma once

#include "benchmarks/SettingsData.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <string>

inline rapidjson::Value JsonValue(const Setting& setting, rapidjson::Document::AllocatorType& memory)
{
    switch (setting.kind) {
    case Kind::Long:
    case Kind::Enum: return rapidjson::Value(setting.whole);
    case Kind::String:
        return rapidjson::Value(setting.text.data(), static_cast<rapidjson::SizeType>(setting.text.size()), memory);
    case Kind::Position: {
        rapidjson::Value point(rapidjson::kArrayType);
        point.Reserve(3, memory);
        point.PushBack(setting.x, memory).PushBack(setting.y, memory).PushBack(setting.z, memory);
        return point;
    }
    default: return rapidjson::Value(setting.x);
    }
}

inline void BuildJson(rapidjson::Document& document, const SettingsData& data)
{
    auto& memory = document.GetAllocator();
    document.SetObject();
    rapidjson::Value* category = nullptr;
    rapidjson::Value* group = nullptr;
    for (const Setting& setting : data.settings) {
        const std::string id = std::to_string(setting.id);
        rapidjson::Value key(id.data(), static_cast<rapidjson::SizeType>(id.size()), memory);
        if (setting.kind == Kind::Category) {
            rapidjson::Value& parent = setting.parent < 0 ? static_cast<rapidjson::Value&>(document) : *category;
            parent.AddMember(key, rapidjson::Value(rapidjson::kObjectType), memory);
            (setting.parent < 0 ? category : group) = &(parent.MemberEnd() - 1)->value;
            continue;
        }
        rapidjson::Value record(rapidjson::kArrayType);
        record.Reserve(4, memory);
        record.PushBack(setting.visible + 2 * setting.readOnly, memory)
            .PushBack(setting.editFlags, memory)
            .PushBack(static_cast<int>(setting.kind), memory)
            .PushBack(JsonValue(setting, memory), memory);
        group->AddMember(key, record, memory);
    }
}

inline std::string JsonText(const SettingsData& data)
{
    rapidjson::Document document;
    BuildJson(document, data);
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    document.Accept(writer);
    return {buffer.GetString(), buffer.GetSize()};
}
