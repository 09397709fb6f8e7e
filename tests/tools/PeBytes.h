// A small file with the headers of a Windows library and one section, for tests that need no code in it.
#pragma once

#include "tools/lvprop/doctor/PeImage.h"

#include <cstdint>
#include <string>

inline constexpr std::size_t kPeOffset = 0x80; // of its program header
inline constexpr std::size_t kMachineOffset = kPeOffset + 4;
inline constexpr std::size_t kMagicOffset = kPeOffset + 24;

/// Little-endian, in place.
inline void PutU16(std::string& bytes, std::size_t offset, unsigned number)
{
    bytes[offset] = static_cast<char>(number & 0xFF);
    bytes[offset + 1] = static_cast<char>(number >> 8);
}

/// @param machine  decides the width of the program header, too.
inline std::string PeBytes(std::uint16_t machine = kMachineX64)
{
    constexpr std::size_t kOptionalSize = 0xF0;
    constexpr std::size_t kSection = kMagicOffset + kOptionalSize;
    constexpr std::size_t kContent = 0x200;
    constexpr std::size_t kContentSize = 0x100;
    std::string bytes(kContent + kContentSize, '\0');
    bytes.replace(0, 2, "MZ");
    PutU16(bytes, 0x3C, kPeOffset);
    bytes.replace(kPeOffset, 2, "PE");
    PutU16(bytes, kMachineOffset, machine);
    PutU16(bytes, kPeOffset + 6, 1); // sections
    PutU16(bytes, kPeOffset + 20, kOptionalSize);
    PutU16(bytes, kMagicOffset, machine == kMachineX86 ? 0x10B : 0x20B);
    bytes.replace(kSection, 5, ".rsrc");
    PutU16(bytes, kSection + 16, kContentSize);
    PutU16(bytes, kSection + 20, kContent);
    return bytes;
}
