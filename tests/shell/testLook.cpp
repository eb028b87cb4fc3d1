// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipErrors.h"
#include "shell/base/lotLook.h"
#include "shell/dialogs/frmAbout.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFontMetricsF>
#include <QImage>
#include <QLabel>
#include <QPointer>
#include <QTest>

namespace {

QImage Painted(const QIcon& icon, QIcon::Mode mode, QIcon::State state, double ratio) {
    return icon.pixmap(QSize(look::IconSize, look::IconSize), ratio, mode, state)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32);
}

int InkedPixels(const QImage& image) {
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            inked += qAlpha(image.pixel(x, y)) > 64 ? 1 : 0;
        }
    }
    return inked;
}

} // namespace

// A faulty drawing renders as nothing, or as a blot, which shows only on the screen that uses it.
TEST(Look, EveryIconIsADrawingThatShowsItsState) {
    const QStringList files = QDir(":/icons").entryList({"*.svg"});
    ASSERT_GT(files.size(), 60);
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        const QIcon icon = look::Icon(file.chopped(4));
        const QImage normal = Painted(icon, QIcon::Normal, QIcon::Off, 1);
        const int inked = InkedPixels(normal);
        EXPECT_GT(inked, 15);
        if (!file.startsWith("lotmaster")) {
            EXPECT_LT(inked, 260) << "of 400 pixels: a line drawing leaves more of them free";
        }
        EXPECT_NE(Painted(icon, QIcon::Disabled, QIcon::Off, 1), normal);
        EXPECT_EQ(Painted(icon, QIcon::Normal, QIcon::Off, 2).size(), normal.size() * 2);
    }
    EXPECT_NE(Painted(look::Icon("link"), QIcon::Normal, QIcon::On, 1),
              Painted(look::Icon("link"), QIcon::Normal, QIcon::Off, 1));
    EXPECT_THROW(static_cast<void>(look::Icon("no-such-icon")), ELotError);
}

TEST(Look, FiguresStandUnderEachOther) {
    const QFontMetricsF metrics(look::FigureFont());
    for (const QChar digit : QString("123456789")) {
        EXPECT_DOUBLE_EQ(metrics.horizontalAdvance(digit), metrics.horizontalAdvance('0')) << digit.toLatin1();
    }
    EXPECT_DOUBLE_EQ(metrics.horizontalAdvance("1174711"), metrics.horizontalAdvance("0000000"));
}

TEST(About, SplashNeverWaitsForAnybody) {
    using namespace std::chrono_literals;
    QWidget window;
    window.show();

    QPointer<TAboutForm> splash = &TAboutForm::ShowSplash(nullptr, 50ms);
    EXPECT_TRUE(splash->isVisible());
    EXPECT_FALSE(splash->isModal());
    EXPECT_TRUE(QTest::qWaitFor([&] { return splash.isNull(); }, 5000)) << "its time is up";

    splash = &TAboutForm::ShowSplash(nullptr, 1h);
    QTest::mouseClick(splash, Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return splash.isNull(); }, 5000)) << "clicked";

    splash = &TAboutForm::ShowSplash(&window, 1h);
    QTest::keyClick(&window, Qt::Key_A);
    EXPECT_TRUE(QTest::qWaitFor([&] { return splash.isNull(); }, 5000)) << "work goes on in the window behind";
    EXPECT_TRUE(window.isVisible());
}

TEST(About, BoxClosesByEscapeAndByItsButton) {
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        TAboutForm box;
        box.show();
        EXPECT_TRUE(box.findChild<QLabel*>("lblVersion")->text().contains(LOTMASTER_VERSION));
        QTest::keyClick(&box, key);
        EXPECT_FALSE(box.isVisible());
    }
}
