# The support log, its directory and its file class.
lv_add_test(frame_log_tests ONE_THREAD
  SOURCES LvuStdioFileTest.cpp SupportFilesDirTest.cpp SupportLogTest.cpp
  LIBS lv_frame)
