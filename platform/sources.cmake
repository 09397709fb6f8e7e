# What platform/ is made of. Systems differ by file: the common sources are the same for both.
set(LV_PLATFORM_COMMON_SOURCES
  com/ClassTable.cpp)

set(LV_PLATFORM_NATIVE_SOURCES
  com/native/Apartment.cpp
  com/native/Bstr.cpp
  com/native/ClassObjects.cpp
  com/native/ErrorInfo.cpp
  com/native/Guid.cpp
  com/native/Identifiers.cpp
  com/native/SafeArray.cpp
  com/native/SystemText.cpp
  com/native/TaskMemory.cpp
  com/native/Thread.cpp
  com/native/Variant.cpp)

set(LV_PLATFORM_WINDOWS_SOURCES
  com/windows/SystemText.cpp)
