#include "platform/system/AnsiText.h"

#include "platform/system/Windows1252.h"

std::string AnsiFrom(TextView text)
{
    return Windows1252From(text);
}

Text TextFromAnsi(std::string_view bytes)
{
    return TextFromWindows1252(bytes);
}
