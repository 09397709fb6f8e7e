// The headers of a Windows program file: which machine it is for, and whether the file is whole. Reads bytes alone, so
// that a folder meant for Windows can be judged on any system.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct PeImage {
    enum class State {
        NoImage, ///< something else than a program or library of Windows
        Damaged, ///< begins as one, and the rest does not hold
        Whole
    };
    State state = State::NoImage;
    std::string trouble; ///< what is wrong, in words that go on behind "the file"; empty for a whole file
    std::uint16_t machine = 0;
};

inline constexpr std::uint16_t kMachineX64 = 0x8664;
inline constexpr std::uint16_t kMachineX86 = 0x014C;
inline constexpr std::uint16_t kMachineArm64 = 0xAA64;

/// "64-bit (x64)", "32-bit (x86)" and so on.
std::string MachineName(std::uint16_t machine);

/// @param bytes  the whole file: the end of each section is compared with its end.
PeImage ReadPeImage(std::string_view bytes);
