#include "tools/lvprop/doctor/PeImage.h"

#include <optional>

namespace {

constexpr std::size_t kDosHeaderSize = 64;
constexpr std::size_t kOffsetOfPeOffset = 0x3C;
constexpr std::size_t kCoffHeaderSize = 20;
constexpr std::size_t kSectionHeaderSize = 40;
constexpr std::size_t kSymbolSize = 18;
constexpr std::string_view kPeSignature{"PE\0\0", 4};
constexpr std::uint16_t kMagic32 = 0x10B;
constexpr std::uint16_t kMagic64 = 0x20B;

/// Little-endian numbers at offsets; the caller has made sure that they lie inside.
class Numbers {
public:
    explicit Numbers(std::string_view bytes) : m_bytes(bytes) {}

    bool Hold(std::size_t offset, std::size_t size) const
    {
        return offset <= m_bytes.size() && size <= m_bytes.size() - offset;
    }
    std::uint16_t U16(std::size_t offset) const
    {
        return static_cast<std::uint16_t>(Byte(offset) | Byte(offset + 1) << 8);
    }
    std::uint32_t U32(std::size_t offset) const
    {
        return U16(offset) | static_cast<std::uint32_t>(U16(offset + 2)) << 16;
    }

private:
    unsigned Byte(std::size_t offset) const { return static_cast<unsigned char>(m_bytes[offset]); }

    std::string_view m_bytes;
};

std::string CutOff(const std::string& part, std::size_t end, std::size_t size)
{
    return "is cut off: its " + part + " would end at byte " + std::to_string(end) + ", and the file has " +
           std::to_string(size);
}

/// The first section whose content ends behind the file, in words; nothing when all lie inside.
std::optional<std::string> SectionOutside(std::string_view bytes, std::size_t table, std::uint16_t count)
{
    const Numbers numbers(bytes);
    if (!numbers.Hold(table, std::size_t{count} * kSectionHeaderSize))
        return "ends within its table of sections";
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t header = table + i * kSectionHeaderSize;
        const std::size_t end = std::size_t{numbers.U32(header + 16)} + numbers.U32(header + 20);
        if (end <= bytes.size())
            continue;
        const std::string_view name = bytes.substr(header, 8);
        return CutOff("section " + std::string(name.substr(0, name.find('\0'))), end, bytes.size());
    }
    return std::nullopt;
}

/// The symbols, where a library has them, are the last of it: a file that was cut lacks them first.
std::optional<std::string> SymbolsOutside(std::string_view bytes, std::size_t coff)
{
    const Numbers numbers(bytes);
    const std::size_t end = numbers.U32(coff + 8) + numbers.U32(coff + 12) * kSymbolSize;
    if (end <= bytes.size())
        return std::nullopt;
    return CutOff("table of symbols", end, bytes.size());
}

PeImage Damaged(PeImage image, std::string trouble)
{
    image.state = PeImage::State::Damaged;
    image.trouble = std::move(trouble);
    return image;
}

} // namespace

std::string MachineName(std::uint16_t machine)
{
    switch (machine) {
    case kMachineX64: return "64-bit (x64)";
    case kMachineX86: return "32-bit (x86)";
    case kMachineArm64: return "64-bit (ARM)";
    default: return "for a machine of another kind (number " + std::to_string(machine) + ")";
    }
}

PeImage ReadPeImage(std::string_view bytes)
{
    PeImage image;
    if (bytes.empty()) {
        image.trouble = "is empty";
        return image;
    }
    if (!bytes.starts_with("MZ")) {
        image.trouble = "does not begin as a library of Windows does";
        return image;
    }
    const Numbers numbers(bytes);
    if (!numbers.Hold(0, kDosHeaderSize))
        return Damaged(image, "ends within its first header");
    const std::size_t signature = numbers.U32(kOffsetOfPeOffset);
    const std::size_t coff = signature + kPeSignature.size();
    const std::size_t optional = coff + kCoffHeaderSize;
    if (!numbers.Hold(signature, optional + sizeof(std::uint16_t) - signature))
        return Damaged(image, "ends ahead of its program header");
    if (bytes.substr(signature, kPeSignature.size()) != kPeSignature)
        return Damaged(image, "has no program header where it says that one is");

    image.machine = numbers.U16(coff);
    const std::uint16_t magic = numbers.U16(optional);
    const std::uint16_t expected = image.machine == kMachineX86 ? kMagic32 : kMagic64;
    if (magic != expected)
        return Damaged(image, "has a program header of another width than its machine");
    const std::size_t sections = optional + numbers.U16(coff + 16);
    if (auto outside = SectionOutside(bytes, sections, numbers.U16(coff + 2)))
        return Damaged(image, *std::move(outside));
    if (auto outside = SymbolsOutside(bytes, coff))
        return Damaged(image, *std::move(outside));
    image.state = PeImage::State::Whole;
    return image;
}
