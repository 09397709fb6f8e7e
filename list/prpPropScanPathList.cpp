#include "list/prpPropScanPathList.h"

#include "frame/LanguageStrings.h"
#include "list/PropertyAccess.h"

Text CprpPropScanPathList::ReadData(IqorProperty& property) const
{
    constexpr UINT kPointsString = 32015;
    LONG count = 0;
    Must(property.GetScanPathListCount(&count));
    Text format;
    if (!LoadLanguageString(kPointsString, format))
        format = OLESTR("%i path points");
    return FormatText(format, count);
}
