#include "tools/lvprop/JsonText.h"

#include <algorithm>

namespace {

bool IsPlain(const Json& json)
{
    return json.is_primitive();
}

std::string Scalar(const Json& json)
{
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void Append(std::string& out, const Json& json, size_t indent);

void AppendFlat(std::string& out, const Json& array)
{
    out += '[';
    for (size_t i = 0; i < array.size(); ++i)
        out.append(i ? ", " : "").append(Scalar(array[i]));
    out += ']';
}

void StartLine(std::string& out, size_t indent, bool first)
{
    if (!first)
        out += ',';
    out += '\n';
    out.append(2 * indent, ' ');
}

void AppendArray(std::string& out, const Json& array, size_t indent)
{
    if (std::ranges::all_of(array, IsPlain))
        return AppendFlat(out, array);
    out += '[';
    for (size_t i = 0; i < array.size(); ++i) {
        StartLine(out, indent + 1, i == 0);
        Append(out, array[i], indent + 1);
    }
    out.append("\n").append(2 * indent, ' ').append("]");
}

void AppendObject(std::string& out, const Json& object, size_t indent)
{
    if (object.empty()) {
        out += "{}";
        return;
    }
    out += '{';
    bool first = true;
    for (const auto& [key, value] : object.items()) {
        StartLine(out, indent + 1, first);
        first = false;
        out.append(Scalar(key)).append(": ");
        Append(out, value, indent + 1);
    }
    out.append("\n").append(2 * indent, ' ').append("}");
}

void Append(std::string& out, const Json& json, size_t indent)
{
    if (json.is_array())
        AppendArray(out, json, indent);
    else if (json.is_object())
        AppendObject(out, json, indent);
    else
        out += Scalar(json);
}

} // namespace

std::string FormatJson(const Json& json)
{
    std::string out;
    Append(out, json, 0);
    out += '\n';
    return out;
}
