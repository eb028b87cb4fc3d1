// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotBranding.h"
#include "shell/views/frmHomeView.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

namespace {

class HomeView : public testing::Test {
protected:
    void Write(const QString& name, const QByteArray& bytes) const {
        QFile file(FFolder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    void WritePicture(const QString& name, QSize size, const char* format) const {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        ASSERT_TRUE(image.save(FFolder.filePath(name), format));
    }

    [[nodiscard]] QString Text(const QString& textName) const {
        const THomeViewForm view(FFolder.path());
        return view.findChild<TBrandingText*>(textName)->toPlainText();
    }

    [[nodiscard]] QSize LogoSize() const {
        const THomeViewForm view(FFolder.path());
        return view.findChild<QLabel*>("imgLogo")->pixmap().size();
    }

    QTemporaryDir FFolder;
};

constexpr QSize ProgramLogo{88, 88};

} // namespace

TEST_F(HomeView, GettingStartedReadsAsItAlwaysDid) {
    const QString text = Text("txtMain");
    qsizetype at = 0;
    for (const char* const item :
         {"Getting Started",
          "Click on the Units icons on the left hand side of the screen to enter build units for the development.",
          "Click on the Costs icon on the left hand side of the screen to enter your development costs.",
          "Click on the Summary icon to see a summary of all costs and sales.",
          "Click the Appraisal icon on the left hand side of the screen, or press F6, to see your appraisal.",
          "To calculate your residual site value, select Goal Seek from the Tools menu (or press F5) and enter your "
          "desired profit.",
          "For further help, please refer to the online help."}) {
        at = text.indexOf(item, at);
        ASSERT_GE(at, 0) << item << "\nin\n" << text.toStdString();
    }
}

TEST_F(HomeView, AnyViewMayBeHeadedByTheFirmsMainText) {
    EXPECT_FALSE(TViewForm("Costs", FFolder.path()).HasFirmText());
    Write("MAIN.html", "<p>Ask the <a href='units'>units</a> desk.</p><script>alert(1)</script>");
    TViewForm view("Costs", FFolder.path());
    ASSERT_TRUE(view.HasFirmText());
    auto* const text = view.findChild<TBrandingText*>("txtFirmMain");
    EXPECT_EQ(text->toPlainText(), "Ask the units desk.");
    QString followed;
    view.OnLink = [&](const QString& target) { followed = target; };
    emit text->anchorClicked(QUrl("units"));
    EXPECT_EQ(followed, "units");
    EXPECT_FALSE(TViewForm("Timescale").HasFirmText());

    Write("Main.html", "<p>" + QByteArray("A long tale.<br>").repeated(500) + "</p>");
    TViewForm told("Costs", FFolder.path());
    told.resize(800, 600);
    told.show();
    EXPECT_LT(told.findChild<QWidget*>("areaFirmText")->height(), 200) << "the view below keeps its room";
}

TEST_F(HomeView, FirmsTextsTakeThePlaceOfTheirOwnOnly) {
    const QString builtInMain = Text("txtMain");
    Write("Welcome.html", "<h1>Harrow &amp; Vale</h1>");
    Write("CONTACT.HTML", "<p>Caf\xE9 \x80 5</p>"); // written on another system, and says nothing of its encoding
    EXPECT_EQ(Text("txtWelcome"), "Harrow & Vale");
    EXPECT_EQ(Text("txtContact"), QString::fromUtf8("Café € 5"));
    EXPECT_EQ(Text("txtMain"), builtInMain);

    Write("Main.html", "\xEF\xBB\xBF<p>Caf\xC3\xA9</p>");
    EXPECT_EQ(Text("txtMain"), QString::fromUtf8("Café"));
    Write("Main.html", "<html><head><meta charset=\"iso-8859-1\"></head><body>Caf\xE9</body></html>");
    EXPECT_EQ(Text("txtMain"), QString::fromUtf8("Café"));
}

TEST_F(HomeView, FirstLogoThatExistsIsShown) {
    EXPECT_EQ(LogoSize(), ProgramLogo) << "no file";
    WritePicture("logo.jpeg", {40, 10}, "JPEG");
    EXPECT_EQ(LogoSize(), QSize(40, 10));
    WritePicture("logo.jpg", {50, 10}, "JPEG");
    EXPECT_EQ(LogoSize(), QSize(50, 10));
    WritePicture("Logo.BMP", {60, 10}, "BMP");
    EXPECT_EQ(LogoSize(), QSize(60, 10));
    // A picture of another kind under that name: what is inside counts.
    WritePicture("logo.gif", {1440, 120}, "PNG");
    EXPECT_EQ(LogoSize(), QSize(360, 30)) << "no wider than its place, in its own proportions";
    Write("logo.gif", "GIF89a no picture");
    EXPECT_EQ(LogoSize(), ProgramLogo) << "the first that exists is the one, though it is broken";
}

TEST_F(HomeView, BrokenAndHostileFilesDoNoHarm) {
    WritePicture("inside.png", {30, 30}, "PNG");
    Write("Welcome.html", "");
    Write("Main.html",
          QByteArray("<table><tr><td><img src='inside.png'><img src='missing.png'><img src='icon:none'>"
                     "<img src='../outside.png'><img src='/etc/hostname'><img src='http://192.0.2.1/x.png'>"
                     "<link rel=stylesheet href='file:///etc/passwd'>") +
              '\0' + "<b>Rest");
    Write("Contact.html", QByteArray((1 << 20) + 1, 'x'));                   // longer than a page can be
    Write("logo.gif", QByteArray("GIF89a\xFF\xFF\xFF\xFF\xF7\x00\x00", 13)); // 65,535 pixels a side, and no data
    THomeViewForm view(FFolder.path());
    view.resize(1040, 600);
    view.show();
    view.grab();
    EXPECT_EQ(view.findChild<TBrandingText*>("txtWelcome")->toPlainText(), "");
    EXPECT_TRUE(view.findChild<TBrandingText*>("txtContact")->toPlainText().contains("online help"));
    EXPECT_EQ(view.findChild<QLabel*>("imgLogo")->pixmap().size(), ProgramLogo);
}

TEST_F(HomeView, TextsAreShownInFullAndTheirLinksReachTheWindow) {
    Write("Welcome.html", "<a href='costs'>Costs</a>");
    THomeViewForm view(FFolder.path());
    QString opened;
    view.OnLink = [&opened](const QString& target) { opened = target; };
    for (const QSize size : {QSize(820, 500), QSize(1040, 600), QSize(1500, 900)}) {
        view.resize(size);
        view.show();
        view.grab();
        for (const auto* text : view.findChildren<TBrandingText*>()) {
            EXPECT_GE(text->height(), text->document()->size().height()) << text->objectName().toStdString();
            EXPECT_LE(text->document()->size().width(), text->viewport()->width()) << text->objectName().toStdString();
        }
    }
    auto& welcome = *view.findChild<TBrandingText*>("txtWelcome");
    QTest::mouseClick(welcome.viewport(), Qt::LeftButton, {}, QPoint(10, welcome.height() / 2));
    EXPECT_EQ(opened, "costs");
}
