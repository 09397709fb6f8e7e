// The stream component in the class table of a native process.
#include "platform/com/ClassTable.h"
#include "suite/qorStream.h"

// Known to the linker by its name: nothing in the program refers to this file.
extern "C" const RegisteredClass lv_streamClass;
const RegisteredClass lv_streamClass(CLSID_qorStream, nullptr, &ClassFactory<CqorStream>::Get);
