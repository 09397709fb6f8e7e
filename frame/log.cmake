# The support log and what it stands on. Questions about the machine go through platform/system.
set(LV_FRAME_LOG_SOURCES
  SupportFilesDir.cpp
  SupportLog.cpp
  lvuStdioFile.cpp)
