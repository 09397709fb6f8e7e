#include "list/NumberCommit.h"

#include "core/NumberRules.h"
#include "frame/NumberScan.h"
#include "frame/NumberText.h"

Text NumberToCommit(TextView typed, double limit, bool imperial)
{
    constexpr int kDecimals = 6;
    double value = limit;
    const bool isNumber = TextScanner(typed).ReadDouble(value);
    const double allowed = ClampToLimit(value, limit, imperial);
    return isNumber && allowed == value ? Text(typed) : FormatFixed(allowed, kDecimals);
}
