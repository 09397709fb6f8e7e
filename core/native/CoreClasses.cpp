// The classes of the core in the class table of a native process.
#include "core/prpHelpInfo.h"
#include "core/prpPropertyCollection.h"
#include "core/prpVisibilityInfo.h"
#include "platform/com/ClassTable.h"

// Known to the linker by its name: nothing in the program refers to this file.
extern "C" const RegisteredClass lv_collectionClass;

const RegisteredClass lv_collectionClass(CLSID_prpPropertyCollection, OLESTR("Tolvarin.prpPropertyCollection.1"),
                                         &ClassFactory<CprpPropertyCollection>::Get);

static const RegisteredClass s_property(CLSID_prpProperty, OLESTR("Tolvarin.prpProperty.1"),
                                        &ClassFactory<CprpProperty>::Get);
static const RegisteredClass s_helpInfo(CLSID_prpHelpInfo, OLESTR("Tolvarin.prpHelpInfo.1"),
                                        &ClassFactory<CprpHelpInfo>::Get);
static const RegisteredClass s_visibilityInfo(CLSID_prpVisibilityInfo, OLESTR("Tolvarin.prpVisibilityInfo.1"),
                                              &ClassFactory<CprpVisibilityInfo>::Get);
