#include "tools/lvprop/QifImport.h"

#include "tools/lvprop/QifCharacteristics.h"
#include "tools/lvprop/QifDocument.h"
#include "tools/lvprop/QifFeatures.h"
#include "tools/lvprop/QifResults.h"
#include "tools/lvprop/QifTree.h"

namespace {

/// Ids of the headings; the first block of a thing of the document begins at 1024.
enum HeadingId : LONG {
    kDocumentHeading = 16,
    kCharacteristicsHeading = 32,
    kFeaturesHeading = 48,
    kResultsHeading = 64
};

void CountDatums(const QifDocument& document, QifReport& report)
{
    if (const XmlElement* datums = document.Root().Child("DatumDefinitions"))
        report.carried["datums"] = datums->Children("DatumDefinition").size();
    if (const XmlElement* frames = document.Root().Child("DatumReferenceFrames"))
        report.carried["datum reference frames"] = frames->Children("DatumReferenceFrame").size();
}

void AddDocument(QifTree& tree, const QifDocument& document, const QifReport& report)
{
    tree.AddHeading(kDocumentHeading, "Document");
    tree.OpenBlock(kDocumentHeading, "QIF");
    tree.AddText("Version", report.version);
    if (const std::string id = QifDocument::TextOf(document.Root().Child("QPId")); !id.empty())
        tree.AddText("Persistent identifier", id);
}

} // namespace

QifImportResult ImportQif(const std::string& name, std::string_view bytes, const QifOptions& options)
{
    QifImportResult result;
    QifReport& report = result.report;
    const QifDocument document(name, bytes, options.assumedUnit, report);
    QifTree tree;
    tree.routine.unitMode = document.UnitMode();
    // Single thousandths of a millimetre matter in both unit systems: an inch needs one decimal more.
    tree.routine.precision = document.UnitMode() == E_IMPERIAL ? 5 : 4;

    AddDocument(tree, document, report);
    CountDatums(document, report);
    QifCharacteristics characteristics(document, options, report);
    tree.AddHeading(kCharacteristicsHeading, "Characteristics");
    characteristics.AddTo(tree, kCharacteristicsHeading);
    tree.AddHeading(kFeaturesHeading, "Features");
    AddNominalFeatures(tree, kFeaturesHeading, document, report);
    if (HasResults(document)) {
        tree.AddHeading(kResultsHeading, "Results");
        AddResults(tree, kResultsHeading, document, characteristics, report);
    }

    for (const auto& [kind, count] : CountUnread(document.Root()))
        report.left[kind] += count;
    result.routine = std::move(tree.routine);
    return result;
}
