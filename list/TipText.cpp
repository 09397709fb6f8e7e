#include "list/TipText.h"

namespace {

void AppendParagraph(Text& out, TextView paragraph)
{
    if (!out.empty() && !paragraph.empty())
        out.append(OLESTR("\r\n\r\n"));
    out.append(paragraph);
}

} // namespace

Text TipTextOf(const TipTexts& texts, ListType type, TextView warningPrefix)
{
    Text tip(texts.error);
    if (type != ListType::TreeList) {
        if (tip.empty() && !texts.warning.empty())
            tip.append(warningPrefix).append(1, OLECHAR(' ')).append(texts.warning);
        return tip;
    }
    AppendParagraph(tip, texts.help);
    AppendParagraph(tip, texts.warning);
    return tip.empty() ? Text(texts.fallback) : tip;
}
