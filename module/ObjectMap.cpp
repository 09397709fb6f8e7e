// The classes that the server makes, entered in the class table of the library.
#include "core/prpHelpInfo.h"
#include "core/prpProperty.h"
#include "core/prpPropertyCollection.h"
#include "core/prpVisibilityInfo.h"
#include "platform/com/ClassTable.h"
#include "viewer/prpCollectionViewerCtrl.h"

namespace {

const RegisteredClass kProperty(CLSID_prpProperty, OLESTR("Tolvarin.prpProperty.1"), &ClassFactory<CprpProperty>::Get);
const RegisteredClass kCollection(CLSID_prpPropertyCollection, OLESTR("Tolvarin.prpPropertyCollection.1"),
                                  &ClassFactory<CprpPropertyCollection>::Get);
const RegisteredClass kHelpInfo(CLSID_prpHelpInfo, OLESTR("Tolvarin.prpHelpInfo.1"), &ClassFactory<CprpHelpInfo>::Get);
const RegisteredClass kVisibilityInfo(CLSID_prpVisibilityInfo, OLESTR("Tolvarin.prpVisibilityInfo.1"),
                                      &ClassFactory<CprpVisibilityInfo>::Get);
const RegisteredClass kCollectionViewer(CLSID_prpCollectionViewerCtrl, OLESTR("Tolvarin.prpCollectionViewerCtrl.1"),
                                        &ClassFactory<CprpCollectionViewerCtrl>::Get);

} // namespace
