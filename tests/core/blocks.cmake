lv_add_test(core_blocks_tests
  SOURCES IdIndexTests.cpp NodePoolTests.cpp SiblingListTests.cpp TransactionLockTests.cpp
  LIBS prpcore_blocks)
