// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/views/frmHomeView.h"

#include "shell/base/lotBranding.h"
#include "shell/base/lotLook.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

constexpr int PageWidth = 1240; // lines of text grow too long to read beyond it
constexpr int ContactWidth = 320;
constexpr int ProgramLogo = 88;
constexpr QSize LogoBound{360, 120};

const QString& WelcomeText() {
    static const QString Text =
        "<h1 style='font-size:20pt; font-weight:600; margin:0'>Welcome to Lotmaster</h1>"
        "<p style='font-size:11pt; margin:6px 0 0 0'>Appraise a development from the first sketch to the last sale: "
        "units, costs and funding, month by month; what the scheme earns, and what the land is worth.</p>";
    return Text;
}

const QString& MainText() {
    // One row an item, with the icon of the screen it speaks of.
    static const QString Row = "<tr><td width='34'><img src='icon:%1' width='20' height='20'></td>"
                               "<td style='padding-bottom:11px'>%2</td></tr>";
    static const QString Text =
        "<h2 style='font-size:13pt; font-weight:600; margin:0'>Getting Started</h2>"
        "<table style='margin-top:12px' cellspacing='0' cellpadding='0' width='100%'>" +
        Row.arg("units", "Click on the <a href='units'><B>Units</B></a> icons on the left hand side of the screen to "
                         "enter build units for the development.") +
        Row.arg("costs", "Click on the <a href='costs'><B>Costs</B></a> icon on the left hand side of the screen to "
                         "enter your development costs.") +
        Row.arg("summary", "Click on the <a href='summary'><B>Summary</B></a> icon to see a summary of all costs and "
                           "sales.") +
        Row.arg("report-appraisal",
                "Click the <a href='appraisal'><B>Appraisal</B></a> icon on the left hand side of the screen, or press "
                "<a href='appraisal'><B>F6</B></a>, to see your appraisal. ") +
        Row.arg("goal-seek", " To calculate your residual site value, select <a href='goalseek'><B>Goal Seek</B></a> "
                             "from the <B>Tools</B> menu (or press <a href='goalseek'><B>F5</B></a>) and enter your "
                             "desired profit.") +
        Row.arg("help", "For further help, please refer to the <a href='help'>online help</a>.") + "</table>";
    return Text;
}

const QString& ContactText() {
    static const QString Text =
        "<h2 style='font-size:13pt; font-weight:600; margin:0 0 12px 0'>Help and Contact</h2>"
        "<p style='margin:0 0 10px 0'>The <a href='help'>online help</a> (F1) tells what each screen is for. The "
        "guides "
        "installed with the program describe its files, settings and report tables.</p>"
        "<p style='margin:0 0 10px 0'>For anything they leave open, ask whoever supplied Tarvane Lotmaster to you.</p>"
        "<p style='margin:0 0 10px 0'>Lotmaster is free software: you may use, share and change it under the GNU "
        "General "
        "Public License, version 3 or later.</p>"
        "<p style='margin:0'><a href='about'>About Lotmaster</a></p>";
    return Text;
}

QFrame* MakeCard(QWidget* content, QWidget* parent) {
    auto* const card = new QFrame(parent);
    look::MakeCard(*card);
    auto* const layout = new QVBoxLayout(card);
    layout->setContentsMargins(20, 18, 20, 18);
    layout->addWidget(content);
    layout->addStretch();
    return card;
}

} // namespace

THomeViewForm::THomeViewForm(const QString& brandingFolder, QWidget* parent)
    : TViewForm("Home", {}, parent), // its own main text stands in a card
      FFolder(brandingFolder),
      FLogo(new QLabel(this)),
      FWelcome(new TBrandingText(this)),
      FMain(new TBrandingText(this)),
      FContact(new TBrandingText(this)) {
    FLogo->setObjectName("imgLogo");
    FWelcome->setObjectName("txtWelcome");
    FMain->setObjectName("txtMain");
    FContact->setObjectName("txtContact");

    setObjectName("HomeViewForm");
    auto* const scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(MakePage());
    scroll->widget()->setBackgroundRole(QPalette::Base);
    scroll->viewport()->setBackgroundRole(QPalette::Base);
    Body().setContentsMargins(0, 0, 0, 0);
    Body().addWidget(scroll);

    LoadLogo();
    LoadText(*FWelcome, "Welcome.html", WelcomeText());
    LoadText(*FMain, "Main.html", MainText());
    LoadText(*FContact, "Contact.html", ContactText());
}

QWidget* THomeViewForm::MakePage() {
    auto* const hero = new QFrame(this);
    look::MakeCard(*hero, true);
    auto* const heroLayout = new QHBoxLayout(hero);
    heroLayout->setContentsMargins(24, 20, 24, 20);
    heroLayout->setSpacing(24);
    heroLayout->addWidget(FLogo);
    heroLayout->addWidget(FWelcome, 1, Qt::AlignVCenter);

    auto* const contact = MakeCard(FContact, this);
    contact->setFixedWidth(ContactWidth);
    auto* const cards = new QHBoxLayout;
    cards->setSpacing(look::WideGap);
    cards->addWidget(MakeCard(FMain, this), 1);
    cards->addWidget(contact);

    auto* const column = new QWidget;
    column->setMaximumWidth(PageWidth);
    auto* const columnLayout = new QVBoxLayout(column);
    columnLayout->setContentsMargins(look::Margin, look::Margin, look::Margin, look::Margin);
    columnLayout->setSpacing(look::WideGap);
    columnLayout->addWidget(hero);
    columnLayout->addLayout(cards);
    columnLayout->addStretch(1); // takes all that the cards don't need

    auto* const page = new QWidget;
    auto* const pageLayout = new QHBoxLayout(page);
    pageLayout->setContentsMargins(0, 0, 0, 0);
    pageLayout->addWidget(column);
    pageLayout->addStretch();
    pageLayout->setStretch(0, 1);
    return page;
}

void THomeViewForm::LoadLogo() {
    const auto own =
        branding::Picture(FFolder, {"logo.gif", "logo.bmp", "logo.jpg", "logo.jpeg"}, LogoBound, devicePixelRatioF());
    FLogo->setPixmap(own ? *own : look::Icon("lotmaster").pixmap(QSize(ProgramLogo, ProgramLogo), devicePixelRatioF()));
}

void THomeViewForm::LoadText(TBrandingText& text, const QString& fileName, const QString& builtIn) {
    FollowLinks(text);
    if (const auto own = branding::Text(FFolder, fileName)) {
        text.SetText(*own, FFolder);
    } else {
        text.SetText(builtIn);
    }
}
