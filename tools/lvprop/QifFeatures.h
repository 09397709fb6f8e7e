// Features of a QIF document, nominal and measured: positions, directions, sizes and boundary lines.
#pragma once

#include "tools/lvprop/QifDocument.h"
#include "tools/lvprop/QifTree.h"

#include <string>

/// Adds one category for each nominal feature.
void AddNominalFeatures(QifTree& tree, LONG heading, const QifDocument& document, QifReport& report);

/// Adds positions, directions and sizes of one feature, nominal or measured, to the open block.
void AddFeatureGeometry(QifTree& tree, const QifDocument& document, const XmlElement& feature, QifReport& report);

/// "CylinderFeatureNominal" gives "Cylinder".
std::string FeatureKindOf(const XmlElement& feature);
