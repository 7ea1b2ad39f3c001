// PstDamageTest: damaged PST files give a store or an error that names the file, and nothing else.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "TestFiles.h"
#include "automation/Error.h"
#include "localstores/OpenStores.h"
#include "pst/PstStore.h"

namespace localstores {
namespace {

using testing::AllOf;
using testing::HasSubstr;

class PstDamage : public testing::Test {
  protected:
    void SetUp() override {
        const auto file = SamplePst();
        if (!file) GTEST_SKIP() << "the sample file dist-list.pst is not beside the repository";
        sound_ = ReadWholeFile(*file);
        damagedFile_ = directory_.Utf8() + "/damaged.pst";
    }

    /// Whether a store came of it.
    bool Open(const std::string& content) {
        WriteWholeFile(damagedFile_, content);
        try {
            return !OpenStores(damagedFile_).empty();
        } catch (const automation::Error& error) {
            EXPECT_THAT(error.Text(), HasSubstr(damagedFile_));
            return false;
        }
    }

    TemporaryDirectory directory_;
    std::string sound_;
    std::string damagedFile_;
};

TEST_F(PstDamage, SoundFileOpens) {
    EXPECT_TRUE(Open(sound_));
}

TEST_F(PstDamage, EveryTruncationOfTheHeadIsRefused) {
    for (size_t size = 0; size < 0x400; size += 7) EXPECT_FALSE(Open(sound_.substr(0, size))) << size;
}

TEST_F(PstDamage, TruncatedFilesEndInAStoreOrAnError) {
    int refused = 0;
    for (size_t size = 0; size < sound_.size(); size += 1021)
        if (!Open(sound_.substr(0, size))) ++refused;
    EXPECT_GT(refused, 0);
}

TEST_F(PstDamage, FlippedBitsEndInAStoreOrAnError) {
    int refused = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::mt19937 random(seed);
        std::string damaged = sound_;
        const unsigned flips = 1u << (seed % 8);
        for (unsigned i = 0; i < flips; ++i)
            damaged[random() % damaged.size()] ^= static_cast<char>(1u << (random() % 8));
        if (!Open(damaged)) ++refused;
    }
    EXPECT_GT(refused, 0);
    EXPECT_LT(refused, 300);
}

TEST_F(PstDamage, FlippedBitsInTheTreesOfPagesEndInAStoreOrAnError) {
    int refused = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::mt19937 random(seed);
        std::string damaged = sound_;
        damaged[random() % 0x6000] ^= static_cast<char>(1u << (random() % 8));
        if (!Open(damaged)) ++refused;
    }
    EXPECT_GT(refused, 0);
}

TEST_F(PstDamage, BlocksOfZerosAndOnesEndInAStoreOrAnError) {
    int refused = 0;
    for (size_t start = 0; start + 512 <= sound_.size(); start += 2560)
        for (const char fill : {'\0', '\xFF'}) {
            std::string damaged = sound_;
            damaged.replace(start, 512, 512, fill);
            if (!Open(damaged)) ++refused;
        }
    EXPECT_GT(refused, 0);
}

constexpr uint32_t tooBig = 0x80040305;

TEST_F(PstDamage, FileThatTakesTooLongIsRefusedWithItsName) {
    WriteWholeFile(damagedFile_, sound_);
    const auto read = [&] { ReadPst(damagedFile_, damagedFile_, {.time = std::chrono::seconds(0)}); };
    EXPECT_EQ(ErrorNumberOf(read), tooBig);
    EXPECT_THAT(FailureOf(read), AllOf(HasSubstr(damagedFile_), HasSubstr("longer than 0 seconds")));
}

TEST_F(PstDamage, FileThatTakesTooMuchMemoryIsRefusedWithItsNameHoweverFarItIsRead) {
    WriteWholeFile(damagedFile_, sound_);
    static size_t left = 0;
    PstLimits limits;
    limits.memoryInUse = []() noexcept -> size_t {
        if (left == 0) return size_t{3} << 30;
        --left;
        return 1000;
    };
    const auto readFor = [&](size_t questions) {
        return [&, questions] {
            left = questions;
            ReadPst(damagedFile_, damagedFile_, limits);
        };
    };
    size_t questions = 1;
    for (; questions < 100'000; questions += 1 + questions / 8) {
        try {
            readFor(questions)();
            break;
        } catch (const automation::Error&) {
            EXPECT_EQ(ErrorNumberOf(readFor(questions)), tooBig) << questions;
            EXPECT_THAT(FailureOf(readFor(questions)), AllOf(HasSubstr(damagedFile_), HasSubstr("1024 megabytes")));
        }
    }
    EXPECT_GT(questions, 50u) << "the limits are looked at often";
    EXPECT_LT(questions, 100'000u) << "in the end the file is read";
}

}  // namespace
}  // namespace localstores
