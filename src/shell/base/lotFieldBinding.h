// SPDX-License-Identifier: GPL-3.0-or-later
//
// Fields of a dialog or panel, bound to the values that they edit: one line makes the labelled widget and ties it to
// its value. Load shows the values; Store writes those back that the user has touched, and those alone: a figure that
// is finer than its mask, a number out of its list, a date out of the calendar and a text with line breaks of its own
// stay what they are, to the last bit, until something else is put in their place.
#pragma once

#include "app/lotServices.h"
#include "common/vipNumber.h"
#include "persistence/lotUserSettings.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QDateEdit;
class QFormLayout;
class QGridLayout;
class QLabel;
class QLineEdit;
class QWidget;
class TChoiceEdit;
class TColourEdit;
class TFileEdit;
class TFontEdit;
class TMemoEdit;
class TNumberEdit;
class TSpinEdit;

/// What a field says of itself.
struct TFieldTexts {
    // Not explicit: most fields are their caption and no more.
    TFieldTexts(const char* caption, const char* name = "", const char* hint = "", const char* unit = "");

    QString Caption; ///< "Ground Rent:", with its "&" if it has a key; of a tick box, what stands beside it.
    QString Name;    ///< Of the object; by itself the caption's letters and digits, "GroundRent".
    QString Hint;    ///< Shown under the mouse.
    QString Unit;    ///< What stands behind the field: "per annum".
};

/// Where a field goes: the next row of a form, a row of a grid with the label in front, or the end of a box, the label
/// above.
class TFieldPlace {
public:
    TFieldPlace(QFormLayout& form);
    TFieldPlace(QGridLayout& grid, int row, int column = 0);
    TFieldPlace(QBoxLayout& box);

    /// `label` is null for a field that carries its caption itself.
    void Put(QLabel* label, QWidget* field) const { FPut(label, field); }

private:
    std::function<void(QLabel*, QWidget*)> FPut;
};

class TFieldBinder {
public:
    /// The widgets belong to `owner`, which the binder must not outlive; nor the values that it is given below.
    TFieldBinder(QWidget& owner, const TNumberLocale& locale);
    TFieldBinder(const TFieldBinder&) = delete;
    TFieldBinder& operator=(const TFieldBinder&) = delete;

    /// `mask` as of TNumberEdit.
    TNumberEdit& Number(const TFieldPlace& place, const TFieldTexts& texts, double& value, const char* mask);
    QLineEdit& Text(const TFieldPlace& place, const TFieldTexts& texts, std::string& value);
    /// Several lines, held with CR LF between them.
    TMemoEdit& Memo(const TFieldPlace& place, const TFieldTexts& texts, std::string& value);
    QCheckBox& Check(const TFieldPlace& place, const TFieldTexts& texts, bool& value);
    /// The value, of an enumeration or a whole number, is an index of the choices; one beyond them shows as none.
    template <typename TValue>
    TChoiceEdit& Choice(const TFieldPlace& place, const TFieldTexts& texts, TValue& value, const QStringList& choices) {
        return AddChoice(
            place, texts, choices, [&value] { return static_cast<int>(value); },
            [&value](int index) { value = static_cast<TValue>(index); });
    }
    /// The value is one of the choices, or any other text, which shows until another is chosen.
    TChoiceEdit& TextChoice(const TFieldPlace& place, const TFieldTexts& texts, std::string& value,
                            const QStringList& choices);
    /// A whole number, clamped where it is typed beyond the bounds.
    template <typename TValue>
    TSpinEdit& Spin(const TFieldPlace& place, const TFieldTexts& texts, TValue& value, int minimum, int maximum) {
        return AddSpin(
            place, texts, minimum, maximum, [&value] { return static_cast<double>(value); },
            [&value](double number) { value = static_cast<TValue>(number); });
    }
    /// A date of vipDate.
    QDateEdit& Date(const TFieldPlace& place, const TFieldTexts& texts, double& value);
    /// A colour as in the options.
    TColourEdit& Colour(const TFieldPlace& place, const TFieldTexts& texts, std::int32_t& value);
    /// The name of a file. `question`: what the dialog behind its button shows.
    TFileEdit& File(const TFieldPlace& place, const TFieldTexts& texts, std::string& value, TlotFileService& files,
                    const TlotFileQuestion& question);
    TFontEdit& Font(const TFieldPlace& place, const TFieldTexts& texts, TlotViewFont& value,
                    std::initializer_list<int> sizes);

    /// Shows the values as they stand; what was typed before is gone.
    void Load();
    /// Takes over what is typed, also in the field that has the focus.
    void Store();

    /// Of a field with what belongs to it: its label and its unit.
    void SetEnabled(const QWidget& field, bool enabled) const;

    /// The user has changed a field: when a number or spin field is left, at once otherwise. Not during Load. Guarded.
    std::function<void()> OnChange;

private:
    struct TField {
        QWidget* Widget;
        QLabel* Label;
        QLabel* Unit;
        std::function<void()> Load;
        std::function<void()> Store;
    };

    TChoiceEdit& AddChoice(const TFieldPlace& place, const TFieldTexts& texts, const QStringList& choices,
                           const std::function<int()>& get, const std::function<void(int)>& set);
    TSpinEdit& AddSpin(const TFieldPlace& place, const TFieldTexts& texts, int minimum, int maximum,
                       const std::function<double()>& get, const std::function<void(double)>& set);
    /// Names and places the widget and keeps its two ways. `captioned`: it shows its caption itself.
    void Add(const TFieldPlace& place, const TFieldTexts& texts, QWidget& widget, std::function<void()> load,
             std::function<void()> store, bool captioned = false);
    /// The same for a widget that shows a value in a form of its own: `set` gets what it reads, once that differs from
    /// what it read after loading.
    template <typename TShow, typename TRead, typename TSet>
    void AddCompared(const TFieldPlace& place, const TFieldTexts& texts, QWidget& widget, TShow show, TRead read,
                     TSet set);
    template <typename TEdit>
    void AddPosted(const TFieldPlace& place, const TFieldTexts& texts, TEdit& edit, const std::function<double()>& get,
                   const std::function<void(double)>& set);
    void Touched() const;

    QWidget& FOwner;
    TNumberLocale FLocale;
    std::vector<TField> FFields;
    bool FLoading = false;
    QObject FConnections; // Signals stop with the binder: its fields live on a little longer.
};
