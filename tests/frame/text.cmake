# Text, number text and number scanning. The reference that random values are compared with differs by system.
if(WIN32)
  set(reference windows/ReferenceNumbers.cpp)
else()
  set(reference native/ReferenceNumbers.cpp)
endif()
lv_add_test(frame_text_tests ONE_THREAD
  SOURCES FormatTextTest.cpp NumberScanTest.cpp NumberTextTest.cpp RandomNumbersTest.cpp TextBufferTest.cpp
    TextToolsTest.cpp ${reference}
  LIBS lv_frame)
