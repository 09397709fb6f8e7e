#include "list/PasteFilter.h"

#include "core/Transliterate.h"

Text FilterPaste(TextView text)
{
    return TransliterateToAscii(text);
}
