// What is the same for every system: the ownership of the handle.
#include "platform/mfc/FileHandle.h"

#include <utility>

FileHandle::FileHandle(FileHandle&& other) noexcept
    : m_handle(std::exchange(other.m_handle, kClosed)), m_name(std::move(other.m_name))
{
}

FileHandle& FileHandle::operator=(FileHandle&& other) noexcept
{
    std::swap(m_handle, other.m_handle);
    std::swap(m_name, other.m_name);
    return *this;
}
