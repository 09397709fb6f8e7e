// The stream component in the class table: of the process natively, of its own DLL on Windows.
#include "platform/com/ClassTable.h"
#include "suite/stream/qorStream.h"

// Known to the linker by its name: nothing in the program refers to this file.
extern "C" const RegisteredClass lv_streamClass;
const RegisteredClass lv_streamClass(CLSID_qorStream, OLESTR("Tolvarin.strStream.1"), &ClassFactory<CqorStream>::Get);
