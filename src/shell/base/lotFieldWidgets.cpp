// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotFieldWidgets.h"

#include "shell/base/lotGuardedSlot.h"
#include "shell/base/lotLook.h"

#include <QColorDialog>
#include <QComboBox>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPixmap>
#include <QTextDocument>
#include <QToolButton>
#include <utility>

namespace {

constexpr int MemoLines = 6; // Seen at once, at least.
constexpr int MemoLetters = 40;
constexpr QSize SwatchSize(36, 14);
constexpr int NamesWidth = 260;

QColor ToColor(std::int32_t colour) {
    const auto bits = static_cast<std::uint32_t>(colour);
    const auto part = [bits](unsigned shift) { return static_cast<int>((bits >> shift) & 0xFFU); };
    return {part(0), part(8), part(16)};
}

std::int32_t FromColor(const QColor& colour) {
    return (colour.blue() << 16) | (colour.green() << 8) | colour.red();
}

} // namespace

TMemoEdit::TMemoEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
}

QSize TMemoEdit::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    const int frame = 2 * frameWidth() + static_cast<int>(2 * document()->documentMargin());
    return {metrics.horizontalAdvance('x') * MemoLetters + frame, metrics.lineSpacing() * MemoLines + frame};
}

std::string TMemoEdit::Text() const {
    // The plain text would turn hard spaces into common ones.
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, "\r\n");
    text.replace(QChar::LineSeparator, "\r\n");
    return text.toStdString();
}

void TMemoEdit::SetText(const std::string& text) {
    setPlainText(QString::fromStdString(text));
}

TColourEdit::TColourEdit(QWidget* parent) : QPushButton(parent) {
    setIconSize(SwatchSize);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    SetColour(0);
    OnSignal(*this, &QPushButton::clicked, *this, [this] { Choose(); });
}

void TColourEdit::SetColour(std::int32_t colour) {
    FColour = colour;
    QPixmap swatch(SwatchSize);
    swatch.fill(ToColor(colour));
    setIcon(QIcon(swatch));
    setText(ToColor(colour).name().toUpper());
}

void TColourEdit::Choose() {
    const QColor chosen = QColorDialog::getColor(ToColor(FColour), this, "Colour");
    if (chosen.isValid()) {
        SetColour(FromColor(chosen));
        emit Chosen();
    }
}

TFileEdit::TFileEdit(TlotFileService& files, TlotFileQuestion question, QWidget* parent)
    : QWidget(parent), FFiles(files), FQuestion(std::move(question)), FEdit(new QLineEdit(this)) {
    auto* const browse = new QToolButton(this);
    browse->setObjectName("btnBrowse");
    browse->setIcon(look::Icon("open"));
    browse->setToolTip("Look for the file");
    browse->setAccessibleName("Browse");
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(look::SmallGap);
    layout->addWidget(FEdit, 1);
    layout->addWidget(browse);
    setFocusProxy(FEdit);
    connect(FEdit, &QLineEdit::textEdited, this, &TFileEdit::Changed);
    OnSignal(*browse, &QToolButton::clicked, *this, [this] { Browse(); });
}

std::string TFileEdit::FileName() const {
    return FEdit->text().toStdString();
}

void TFileEdit::SetFileName(const std::string& name) {
    FEdit->setText(QString::fromStdString(name));
}

void TFileEdit::Browse() {
    TlotFileQuestion question = FQuestion;
    if (!FEdit->text().isEmpty()) {
        question.Name = FileName();
    }
    if (const std::optional<std::string> chosen = FFiles.AskOpen(question)) {
        SetFileName(*chosen);
        emit Changed();
    }
}

TFontEdit::TFontEdit(const QString& name, std::initializer_list<int> sizes, QWidget* parent)
    : QWidget(parent), FNames(new QComboBox(this)), FSizes(new QComboBox(this)) {
    FNames->setObjectName(name + "FontName");
    FNames->addItems(QFontDatabase::families());
    FNames->setMinimumWidth(NamesWidth);
    FSizes->setObjectName(name + "FontSize");
    for (const int size : sizes) {
        FSizes->addItem(QString::number(size), size);
    }
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(look::WideGap);
    layout->addWidget(FNames, 1);
    layout->addWidget(FSizes);
    setFocusProxy(FNames);
    connect(FNames, &QComboBox::activated, this, &TFontEdit::Changed);
    connect(FSizes, &QComboBox::activated, this, &TFontEdit::Changed);
}

TlotViewFont TFontEdit::Font() const {
    return {FSizes->currentData().toInt(), FNames->currentText().toStdString()};
}

void TFontEdit::SetFont(const TlotViewFont& font) {
    const QString name = QString::fromStdString(font.Name);
    if (FNames->findText(name, Qt::MatchFixedString) < 0) {
        FNames->insertItem(0, name);
    }
    FNames->setCurrentIndex(FNames->findText(name, Qt::MatchFixedString));
    if (FSizes->findData(font.Size) < 0) {
        FSizes->addItem(QString::number(font.Size), font.Size);
    }
    FSizes->setCurrentIndex(FSizes->findData(font.Size));
}
