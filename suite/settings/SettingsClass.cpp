// The settings component in the class table: of the process natively, of its own DLL on Windows.
#include "platform/com/ClassTable.h"
#include "suite/settings/qorSettings.h"

// Known to the linker by its name: nothing in the program refers to this file.
extern "C" const RegisteredClass lv_settingsClass;
const RegisteredClass lv_settingsClass(CLSID_setSettings, OLESTR("Tolvarin.setSettings.1"),
                                       &ClassFactory<CqorSettings>::Get);
