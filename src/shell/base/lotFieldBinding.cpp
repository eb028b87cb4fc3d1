// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotFieldBinding.h"

#include "shell/base/lotFieldWidgets.h"
#include "shell/base/lotGuardedSlot.h"
#include "shell/base/lotLook.h"
#include "widgets/lotChoiceEdit.h"
#include "widgets/lotNumberEdit.h"
#include "widgets/lotSpinEdit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <memory>
#include <type_traits>
#include <utility>

namespace {

const QDate DayNought(1899, 12, 30); // Of a date of vipDate; shows as no date.
const QDate LastDay(9999, 12, 31);

QString Plain(QString caption) {
    caption.remove('&');
    return caption.endsWith(':') ? caption.chopped(1) : caption;
}

QDate ToDate(double value) {
    const bool inCalendar = value >= 0 && value < static_cast<double>(DayNought.daysTo(LastDay)) + 1;
    return inCalendar ? DayNought.addDays(static_cast<qint64>(value)) : DayNought;
}

} // namespace

TFieldTexts::TFieldTexts(const char* caption, const char* name, const char* hint, const char* unit)
    : Caption(caption), Name(name), Hint(hint), Unit(unit) {
    if (Name.isEmpty()) {
        for (const QChar letter : Caption) {
            if (letter.isLetterOrNumber()) {
                Name += letter;
            }
        }
    }
}

TFieldPlace::TFieldPlace(QFormLayout& form)
    : FPut([&form](QLabel* label, QWidget* field) {
          label != nullptr ? form.addRow(label, field) : form.addRow(QString(), field);
      }) {}

TFieldPlace::TFieldPlace(QGridLayout& grid, int row, int column)
    : FPut([&grid, row, column](QLabel* label, QWidget* field) {
          if (label != nullptr) {
              grid.addWidget(label, row, column);
          }
          grid.addWidget(field, row, column + 1);
      }) {}

TFieldPlace::TFieldPlace(QBoxLayout& box)
    : FPut([&box](QLabel* label, QWidget* field) {
          if (label != nullptr) {
              box.addWidget(label);
          }
          box.addWidget(field);
      }) {}

TFieldBinder::TFieldBinder(QWidget& owner, const TNumberLocale& locale) : FOwner(owner), FLocale(locale) {}

void TFieldBinder::Touched() const {
    if (!FLoading && OnChange) {
        Guarded(OnChange);
    }
}

void TFieldBinder::Add(const TFieldPlace& place, const TFieldTexts& texts, QWidget& widget, std::function<void()> load,
                       std::function<void()> store, bool captioned) {
    widget.setObjectName(texts.Name);
    widget.setAccessibleName(Plain(texts.Caption));
    widget.setToolTip(texts.Hint);
    QLabel* label = nullptr;
    if (!captioned) {
        label = new QLabel(texts.Caption, &FOwner);
        label->setBuddy(widget.focusProxy() != nullptr ? widget.focusProxy() : &widget);
        label->setToolTip(texts.Hint);
    }
    QLabel* unit = nullptr;
    QWidget* placed = &widget;
    if (!texts.Unit.isEmpty()) {
        unit = new QLabel(texts.Unit, &FOwner);
        placed = new QWidget(&FOwner);
        auto* const row = new QHBoxLayout(placed);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(look::Gap);
        row->addWidget(&widget);
        row->addWidget(unit);
        row->addStretch(1);
        widget.setAccessibleName(widget.accessibleName() + " " + texts.Unit);
    }
    place.Put(label, placed);
    FFields.push_back({&widget, label, unit, std::move(load), std::move(store)});
    const QScopedValueRollback<bool> loading(FLoading, true);
    FFields.back().Load();
}

/// For the fields of numbers, which know by themselves whether they were touched.
template <typename TEdit>
void TFieldBinder::AddPosted(const TFieldPlace& place, const TFieldTexts& texts, TEdit& edit,
                             const std::function<double()>& get, const std::function<void(double)>& set) {
    const auto touched = std::make_shared<bool>(false);
    OnSignal(edit, &TEdit::Left, FConnections, [this, touched](bool changed) {
        if (changed) {
            *touched = true;
            Touched();
        }
    });
    Add(
        place, texts, edit,
        [=, &edit] {
            edit.SetValue(get());
            *touched = false;
        },
        [=, &edit] {
            *touched = edit.Post() || *touched;
            if (*touched) {
                set(edit.Value());
            }
        });
}

TNumberEdit& TFieldBinder::Number(const TFieldPlace& place, const TFieldTexts& texts, double& value, const char* mask) {
    auto* const edit = new TNumberEdit(mask, FLocale, &FOwner);
    AddPosted(
        place, texts, *edit, [&value] { return value; }, [&value](double number) { value = number; });
    return *edit;
}

template <typename TShow, typename TRead, typename TSet>
void TFieldBinder::AddCompared(const TFieldPlace& place, const TFieldTexts& texts, QWidget& widget, TShow show,
                               TRead read, TSet set) {
    const auto shown = std::make_shared<std::decay_t<decltype(read())>>();
    Add(
        place, texts, widget,
        [=] {
            show();
            *shown = read();
        },
        [=] {
            if (auto now = read(); now != *shown) {
                set(std::move(now));
            }
        });
}

QLineEdit& TFieldBinder::Text(const TFieldPlace& place, const TFieldTexts& texts, std::string& value) {
    auto* const edit = new QLineEdit(&FOwner);
    OnSignal(*edit, &QLineEdit::textEdited, FConnections, [this] { Touched(); });
    AddCompared(
        place, texts, *edit,
        [=, &value] {
            edit->setText(QString::fromStdString(value));
            edit->setCursorPosition(0);
        },
        [=] { return edit->text(); }, [&value](const QString& text) { value = text.toStdString(); });
    return *edit;
}

TMemoEdit& TFieldBinder::Memo(const TFieldPlace& place, const TFieldTexts& texts, std::string& value) {
    auto* const edit = new TMemoEdit(&FOwner);
    OnSignal(*edit, &TMemoEdit::textChanged, FConnections, [this] { Touched(); });
    AddCompared(
        place, texts, *edit, [=, &value] { edit->SetText(value); }, [=] { return edit->Text(); },
        [&value](std::string text) { value = std::move(text); });
    return *edit;
}

QCheckBox& TFieldBinder::Check(const TFieldPlace& place, const TFieldTexts& texts, bool& value) {
    auto* const box = new QCheckBox(texts.Caption, &FOwner);
    OnSignal(*box, &QCheckBox::toggled, FConnections, [this] { Touched(); });
    Add(
        place, texts, *box, [=, &value] { box->setChecked(value); }, [=, &value] { value = box->isChecked(); }, true);
    return *box;
}

TChoiceEdit& TFieldBinder::AddChoice(const TFieldPlace& place, const TFieldTexts& texts, const QStringList& choices,
                                     const std::function<int()>& get, const std::function<void(int)>& set) {
    auto* const edit = new TChoiceEdit(&FOwner);
    edit->SetChoices(choices);
    OnSignal(*edit, &TChoiceEdit::Chosen, FConnections, [this] { Touched(); });
    AddCompared(
        place, texts, *edit, [=] { edit->SetIndex(get()); }, [=] { return edit->Index(); }, set);
    return *edit;
}

TChoiceEdit& TFieldBinder::TextChoice(const TFieldPlace& place, const TFieldTexts& texts, std::string& value,
                                      const QStringList& choices) {
    auto* const edit = new TChoiceEdit(&FOwner);
    edit->SetChoices(choices);
    OnSignal(*edit, &TChoiceEdit::Chosen, FConnections, [this] { Touched(); });
    AddCompared(
        place, texts, *edit, [=, &value] { edit->SetText(QString::fromStdString(value)); },
        [=] { return edit->Text(); }, [&value](const QString& text) { value = text.toStdString(); });
    return *edit;
}

TSpinEdit& TFieldBinder::AddSpin(const TFieldPlace& place, const TFieldTexts& texts, int minimum, int maximum,
                                 const std::function<double()>& get, const std::function<void(double)>& set) {
    auto* const edit = new TSpinEdit(minimum, maximum, &FOwner, FLocale);
    AddPosted(place, texts, *edit, get, set);
    return *edit;
}

QDateEdit& TFieldBinder::Date(const TFieldPlace& place, const TFieldTexts& texts, double& value) {
    auto* const edit = new QDateEdit(&FOwner);
    edit->setLocale(QLocale(QLocale::English, QLocale::UnitedKingdom)); // As all dates of the program are shown.
    edit->setDisplayFormat("d MMM yyyy");
    edit->setCalendarPopup(true);
    edit->setDateRange(DayNought, LastDay);
    edit->setSpecialValueText(" ");
    OnSignal(*edit, &QDateEdit::dateChanged, FConnections, [this] { Touched(); });
    AddCompared(
        place, texts, *edit, [=, &value] { edit->setDate(ToDate(value)); },
        [=] {
            edit->interpretText();
            return edit->date();
        },
        [&value](QDate date) { value = static_cast<double>(DayNought.daysTo(date)); });
    return *edit;
}

TColourEdit& TFieldBinder::Colour(const TFieldPlace& place, const TFieldTexts& texts, std::int32_t& value) {
    auto* const edit = new TColourEdit(&FOwner);
    OnSignal(*edit, &TColourEdit::Chosen, FConnections, [this] { Touched(); });
    Add(
        place, texts, *edit, [=, &value] { edit->SetColour(value); }, [=, &value] { value = edit->Colour(); });
    return *edit;
}

TFileEdit& TFieldBinder::File(const TFieldPlace& place, const TFieldTexts& texts, std::string& value,
                              TlotFileService& files, const TlotFileQuestion& question) {
    auto* const edit = new TFileEdit(files, question, &FOwner);
    OnSignal(*edit, &TFileEdit::Changed, FConnections, [this] { Touched(); });
    AddCompared(
        place, texts, *edit, [=, &value] { edit->SetFileName(value); }, [=] { return edit->FileName(); },
        [&value](std::string name) { value = std::move(name); });
    edit->Edit().setAccessibleName(edit->accessibleName());
    return *edit;
}

TFontEdit& TFieldBinder::Font(const TFieldPlace& place, const TFieldTexts& texts, TlotViewFont& value,
                              std::initializer_list<int> sizes) {
    auto* const edit = new TFontEdit(texts.Name, sizes, &FOwner);
    const auto shown = std::make_shared<TlotViewFont>();
    OnSignal(*edit, &TFontEdit::Changed, FConnections, [this] { Touched(); });
    Add(
        place, texts, *edit,
        [=, &value] {
            edit->SetFont(value);
            *shown = edit->Font();
        },
        [=, &value] {
            // Each by itself: this machine may spell the name of a font that it has in other letters.
            const TlotViewFont font = edit->Font();
            if (font.Name != shown->Name) {
                value.Name = font.Name;
            }
            if (font.Size != shown->Size) {
                value.Size = font.Size;
            }
        });
    edit->Names().setAccessibleName(edit->accessibleName() + " font");
    edit->Sizes().setAccessibleName(edit->accessibleName() + " size");
    return *edit;
}

void TFieldBinder::Load() {
    const QScopedValueRollback<bool> loading(FLoading, true);
    for (const TField& field : FFields) {
        field.Load();
    }
}

void TFieldBinder::Store() {
    for (const TField& field : FFields) {
        field.Store();
    }
}

void TFieldBinder::SetEnabled(const QWidget& field, bool enabled) const {
    for (const TField& bound : FFields) {
        if (bound.Widget == &field) {
            bound.Widget->setEnabled(enabled);
            for (QLabel* const label : {bound.Label, bound.Unit}) {
                if (label != nullptr) {
                    label->setEnabled(enabled);
                }
            }
        }
    }
}
