// IconsTest: the control's pictures, as they come onto a white ground.
#include "win32/window/Icons.h"

#include <set>

#include "WindowFixture.h"

namespace foldertree {
namespace {

TEST(Icons, EveryPictureShowsSomethingOfItsOwn) {
    const Icons icons;
    for (int size : {16, 20, 24, 32, 48, 64, 100}) {
        std::set<std::vector<uint32_t>> seen;
        for (int picture = 0; picture < pictureCount; ++picture) {
            const Pixels pixels = Drawing(size, size, [&](HDC dc) {
                const RECT square{0, 0, size, size};
                FillRect(dc, &square, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
                icons.Draw(dc, picture, square, false);
            });
            const RECT square{0, 0, size, size};
            EXPECT_EQ(pixels.At(0, 0), 0xFFFFFFu) << "picture " << picture << " has no transparent corner";
            if (static_cast<Picture>(picture) == Picture::None) {
                EXPECT_EQ(pixels.Drawn(square), 0);
            } else {
                EXPECT_GT(pixels.Drawn(square), size * size / 8) << "picture " << picture;
            }
            seen.insert(pixels.values);
        }
        EXPECT_EQ(seen.size(), static_cast<size_t>(pictureCount)) << "at " << size << " pixels";
    }
}

TEST(Icons, EachSizeIsDrawnForItself) {
    const Icons icons;
    const auto drawn = [&](int size) {
        return Drawing(size, size, [&](HDC dc) {
            const RECT square{0, 0, size, size};
            FillRect(dc, &square, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
            icons.Draw(dc, static_cast<int>(Picture::Journal), square, false);
        });
    };
    const auto stretched = [](const Pixels& pixels, int size) {
        return Drawing(size, size, [&](HDC dc) {
            BITMAPINFO info{};
            info.bmiHeader = {sizeof info.bmiHeader, pixels.width, -pixels.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
            StretchDIBits(dc, 0, 0, size, size, 0, 0, pixels.width, pixels.height, pixels.values.data(), &info,
                          DIB_RGB_COLORS, SRCCOPY);
        });
    };
    for (size_t i = 0; i < iconSizes.size(); ++i)
        for (size_t j = 0; j < iconSizes.size(); ++j) {
            if (i == j) continue;
            EXPECT_NE(stretched(drawn(iconSizes[j]), iconSizes[i]), drawn(iconSizes[i]))
                << iconSizes[i] << " is no stretched " << iconSizes[j];
        }
}

TEST(Icons, AnUnknownPictureNumberDrawsNothing) {
    const Icons icons;
    const RECT square{0, 0, 16, 16};
    EXPECT_EQ(Drawing(16, 16, [&](HDC dc) { icons.Draw(dc, 200, square, false); }).Drawn(square), 0);
}

}  // namespace
}  // namespace foldertree
