#include <QImage>
#include <QLocale>
#include <QPainter>

#include <gtest/gtest.h>

#include "providers/qt/QtCanvas.h"

namespace touchpanel {
namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 100;

/// An image of a view of 200 x 100 points, at `scale` pixels to the point.
QImage drawn(int scale, const std::function<void(QtCanvas&)>& draw) {
  QImage image(kWidth * scale, kHeight * scale, QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::black);
  QPainter painter(&image);
  QtCanvas canvas(painter, kHeight);
  draw(canvas);
  return image;
}

/// The smallest rectangle of pixels that are not black; rows count from the top.
QRect inked(const QImage& image) {
  QRect found;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) != qRgb(0, 0, 0)) found |= QRect(x, y, 1, 1);
  return found;
}

StyledText text(std::string words) { return {std::move(words), "Arial", 12, color::kWhite}; }

TEST(QtCanvas, PutsTheOriginIntoTheLowerLeftCorner) {
  const Rect rect{10, 20, 30, 40};
  const std::pair<const char*, std::function<void(QtCanvas&)>> cases[] = {
      {"fillRect", [&](QtCanvas& canvas) { canvas.fillRect(rect, color::kWhite); }},
      {"fillOval", [&](QtCanvas& canvas) { canvas.fillOval(rect, color::kWhite); }},
      {"strokeRect", [&](QtCanvas& canvas) { canvas.strokeRect(rect, color::kWhite); }},
      {"dragged",
       [](QtCanvas& canvas) {
         canvas.fillRect({40, 60, -30, -40}, color::kWhite);
       }},
  };
  for (const auto& [what, draw] : cases) {
    EXPECT_EQ(inked(drawn(1, draw)), QRect(10, 40, 30, 40)) << what;
    EXPECT_EQ(inked(drawn(2, draw)), QRect(20, 80, 60, 80)) << what;
  }
  const auto stopped = [&](QtCanvas& canvas) {
    canvas.stop();
    for (const auto& [what, draw] : cases) draw(canvas);
    canvas.drawText(text("words"), {0, 0});
  };
  EXPECT_TRUE(inked(drawn(1, stopped)).isNull());
}

TEST(QtCanvas, PinsColourComponentsAndBlendsByAlpha) {
  const QImage image = drawn(1, [](QtCanvas& canvas) {
    canvas.fillRect({0, 0, 1, 1}, Color{240, -1, 240, 0.4F});
  });
  const QColor pixel = image.pixelColor(0, kHeight - 1);
  EXPECT_NEAR(pixel.red(), 102, 1);
  EXPECT_EQ(pixel.green(), 0);
  EXPECT_NEAR(pixel.blue(), 102, 1);
}

TEST(QtCanvas, GrowsABlockOfLinesUpwardsFromThePoint) {
  const auto inkOf = [](const char* words, int scale = 1) {
    return inked(drawn(scale, [&](QtCanvas& canvas) { canvas.drawText(text(words), {20, 10}); }));
  };
  // "g" reaches down to the line's descent, "H" stands on the base line above it.
  const QRect one = inkOf("Hg");
  EXPECT_NEAR(one.left(), 21, 2);
  EXPECT_NEAR(one.bottom(), kHeight - 10 - 1, 2);
  EXPECT_NEAR(one.top(), kHeight - 10 - 12, 3);
  const QRect three = inkOf("Hg\nHg\nHg");
  EXPECT_EQ(three.bottomLeft(), one.bottomLeft());
  const int lineHeight = one.bottom() - inkOf("Hg\n").bottom();
  EXPECT_NEAR(lineHeight, 14, 2) << "a line end at the end opens an empty line below";
  EXPECT_EQ(three.top(), one.top() - 2 * lineHeight);
  EXPECT_GT(inkOf("     Hg").left(), one.left() + 10) << "spaces at the start of a line count";

  const auto extent = [](StyledText words) {
    Rect found;
    drawn(1, [&](QtCanvas& canvas) { found = canvas.textExtent(words, {20, 10}); });
    return found;
  };
  EXPECT_EQ(extent(text("Hg\nHg\n")).y, 10 + static_cast<float>(lineHeight));
  EXPECT_EQ(extent(text("Hg\nHg")).height, 2 * static_cast<float>(lineHeight));
  EXPECT_NEAR(extent(text("Hg")).width, one.width(), 3);
  auto counted = text("%2 of %1");
  counted.numbers = {{25}, {7.25, 1}};
  EXPECT_EQ(extent(counted),
            extent(text((QLocale().toString(7.25, 'f', 1) + " of 25").toUtf8().constData())));

  const QRect label = inkOf("ReCalibrate");
  EXPECT_LT(label.width(), 80) << "must fit its button";
  EXPECT_NEAR(inkOf("ReCalibrate", 2).width(), 2 * label.width(), 4) << "points at every scale";
}

}  // namespace
}  // namespace touchpanel
