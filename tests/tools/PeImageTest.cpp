#include "tools/lvprop/doctor/PeImage.h"

#include "tests/tools/PeBytes.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

using State = PeImage::State;

TEST(PeImage, TellsTheMachineOfAWholeLibrary)
{
    for (const std::uint16_t machine : {kMachineX64, kMachineX86, kMachineArm64}) {
        const PeImage image = ReadPeImage(PeBytes(machine));
        EXPECT_EQ(image.state, State::Whole) << image.trouble;
        EXPECT_EQ(image.machine, machine);
    }
}

TEST(PeImage, NamesTheUsualMachinesAndNumbersTheOthers)
{
    EXPECT_EQ(MachineName(kMachineX64), "64-bit (x64)");
    EXPECT_EQ(MachineName(kMachineX86), "32-bit (x86)");
    EXPECT_THAT(MachineName(0x1C0), HasSubstr("448"));
}

TEST(PeImage, IsNoneForOtherFiles)
{
    EXPECT_EQ(ReadPeImage("").state, State::NoImage);
    EXPECT_EQ(ReadPeImage("M").state, State::NoImage);
    EXPECT_EQ(ReadPeImage("<assembly/>").state, State::NoImage);
    EXPECT_THAT(ReadPeImage("<assembly/>").trouble, HasSubstr("does not begin"));
}

TEST(PeImage, IsDamagedWhereverTheFileIsCut)
{
    const std::string whole = PeBytes();
    for (std::size_t length = 2; length < whole.size(); ++length) {
        const PeImage image = ReadPeImage(whole.substr(0, length));
        ASSERT_EQ(image.state, State::Damaged) << length;
        ASSERT_NE(image.trouble, "") << length;
    }
}

TEST(PeImage, SaysWhichSectionIsCutOff)
{
    const std::string whole = PeBytes();
    EXPECT_EQ(ReadPeImage(whole.substr(0, whole.size() - 1)).trouble,
              "is cut off: its section .rsrc would end at byte 768, and the file has 767");
}

TEST(PeImage, SaysWhenItsSymbolsAreCutOff)
{
    std::string bytes = PeBytes();
    PutU16(bytes, kMachineOffset + 8, 760);
    PutU16(bytes, kMachineOffset + 12, 1);
    EXPECT_EQ(ReadPeImage(bytes).trouble,
              "is cut off: its table of symbols would end at byte 778, and the file has 768");
}

TEST(PeImage, IsDamagedWithoutASignatureOrWithAHeaderOfTheOtherWidth)
{
    std::string unsigned_ = PeBytes();
    unsigned_[kPeOffset] = 'N';
    EXPECT_THAT(ReadPeImage(unsigned_).trouble, HasSubstr("no program header"));

    std::string mixed = PeBytes(kMachineX64);
    PutU16(mixed, kMagicOffset, 0x10B);
    EXPECT_THAT(ReadPeImage(mixed).trouble, HasSubstr("another width"));
}

TEST(PeImage, NeverReadsOutsideWhateverTheHeaderClaims)
{
    for (std::size_t offset = 0; offset < PeBytes().size(); ++offset) {
        std::string bytes = PeBytes();
        bytes[offset] = '\xFF';
        const PeImage image = ReadPeImage(bytes);
        EXPECT_EQ(image.trouble.empty(), image.state == State::Whole) << offset;
    }
    std::string distant = PeBytes();
    distant.replace(0x3C, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(ReadPeImage(distant).state, State::Damaged);
}

} // namespace
