# The containers, memory and lock under the property model. They know nothing of properties, so they are a library of
# their own, which prpcore links.
set(PRPCORE_BLOCKS_SOURCES
  ChunkStore.cpp ChunkStore.h
  IdIndex.h
  IdOrder.h
  IdTable.h
  NodePool.cpp NodePool.h
  SiblingList.h
  TransactionLock.cpp TransactionLock.h)
add_library(prpcore_blocks STATIC ${PRPCORE_BLOCKS_SOURCES})
target_link_libraries(prpcore_blocks PUBLIC lv_platform)
