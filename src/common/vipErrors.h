// SPDX-License-Identifier: GPL-3.0-or-later
//
// The kinds of failure, told apart by who must act. A calculation answers quietly (0, an Error flag); these are for
// what it cannot answer: faults of the program, expressions that cannot be read, data that cannot be trusted.
#pragma once

#include <stdexcept>
#include <string>

/// Root of every failure that the program raises itself; its text is fit to be shown.
class ELotError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A month index outside its array: a month before the project's first, or one that cannot be held.
class ERangeError : public ELotError {
public:
    ERangeError() : ELotError("Range check error") {}
};

/// Something that the program itself guarantees does not hold.
class EAssertionFailed : public ELotError {
public:
    EAssertionFailed() : ELotError("Assertion failure") {}
};

/// Text that is no number, date or boolean where one is required.
class EConvertError : public ELotError {
public:
    using ELotError::ELotError;
};

/// An expression that could not be read or computed.
class EEvaluatorError : public ELotError {
public:
    using ELotError::ELotError;
};

/// A file, or an element of it, that is refused. The text names both.
class EFileError : public ELotError {
public:
    using ELotError::ELotError;
};
