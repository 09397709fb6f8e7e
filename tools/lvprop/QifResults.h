// The measured part of a QIF document: for each part its measured characteristics, features and probed point sets.
#pragma once

#include "tools/lvprop/QifCharacteristics.h"
#include "tools/lvprop/QifDocument.h"
#include "tools/lvprop/QifTree.h"

/// Adds one category for each measured part, under the heading.
void AddResults(QifTree& tree, LONG heading, const QifDocument& document, const QifCharacteristics& characteristics,
                QifReport& report);

/// True when the document holds results, so that a heading for them makes sense.
bool HasResults(const QifDocument& document);
