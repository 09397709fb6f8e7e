# What platform/ is made of. Systems differ by file: the common sources are the same for both.
set(LV_PLATFORM_COMMON_SOURCES
  com/ClassTable.cpp
  mfc/FileHandle.cpp
  mfc/Mutex.cpp
  mfc/StdioFile.cpp
  system/SystemFacts.cpp
  system/Utf8.cpp
  system/Windows1252.cpp)

set(LV_PLATFORM_NATIVE_SOURCES
  com/native/Apartment.cpp
  com/native/Bstr.cpp
  com/native/ClassObjects.cpp
  com/native/ErrorInfo.cpp
  com/native/EventWindow.cpp
  com/native/Guid.cpp
  com/native/Identifiers.cpp
  com/native/SafeArray.cpp
  com/native/SystemText.cpp
  com/native/TaskMemory.cpp
  com/native/Thread.cpp
  com/native/ThreadQueue.cpp
  com/native/Variant.cpp
  mfc/native/FileHandle.cpp
  system/native/AnsiText.cpp
  system/native/SystemFacts.cpp)

set(LV_PLATFORM_WINDOWS_SOURCES
  atl/windows/ModuleRegistration.cpp
  atl/windows/Registrar.cpp
  com/windows/EventWindow.cpp
  com/windows/PumpThreadQueue.cpp
  com/windows/SystemText.cpp
  mfc/windows/FileHandle.cpp
  system/windows/AnsiText.cpp
  system/windows/SystemFacts.cpp)
