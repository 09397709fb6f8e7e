# Text and numbers of the frame: no system call, the same bodies in both worlds.
set(LV_FRAME_TEXT_SOURCES
  FormatText.cpp
  NumberScan.cpp
  NumberText.cpp
  TextTools.cpp)
