// Imports a QIF document into a routine: characteristics, features, results and probed points become properties.
#pragma once

#include "tools/lvprop/QifReport.h"
#include "tools/lvprop/Routine.h"

#include <string>
#include <string_view>

struct QifOptions {
    std::string assumedUnit;            ///< "mm" or "inch" for a document that names no linear unit
    bool modifiersInDatumNames = false; ///< writes the material modifier of a datum behind its name, as "B(M)"
};

struct QifImportResult {
    Routine routine;
    QifReport report;
};

/// Throws ToolError for bytes that are no QIF document of version 2.x or 3.0. Single values that cannot be read are
/// faults in the report.
QifImportResult ImportQif(const std::string& name, std::string_view bytes, const QifOptions& options);
