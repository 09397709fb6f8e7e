// The chunks that finished pools have left for later ones, shared by the whole process and bounded.
// Chunks are runs of whole pages, aligned to a page; their sizes are powers of two. Any thread.
#pragma once

#include <cstddef>

namespace ChunkStore {
constexpr std::size_t kPageBytes = 4096;
constexpr std::size_t kLargestChunk = std::size_t{256} << 10;
constexpr std::size_t kMostKept = std::size_t{16} << 20; // bytes, all sizes together

/// A chunk of that size, kept or fresh. Throws std::bad_alloc.
[[nodiscard]] void* Take(std::size_t bytes);
void Give(void* chunk, std::size_t bytes) noexcept;
void ReleaseAll() noexcept;
[[nodiscard]] std::size_t KeptBytes() noexcept;
} // namespace ChunkStore
