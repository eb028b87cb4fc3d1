// SPDX-License-Identifier: GPL-3.0-or-later
//
// Hands a message to the user's own mail program, where the user adds addresses and sends it.
#pragma once

#include <string>
#include <vector>

struct TlotMailMessage {
    std::string Subject;
    std::string Body;                     ///< Lines end in CR LF.
    std::vector<std::string> Attachments; ///< Files.
};

class TlotMailService {
public:
    TlotMailService() = default;
    TlotMailService(const TlotMailService&) = delete;
    TlotMailService& operator=(const TlotMailService&) = delete;
    virtual ~TlotMailService() = default;

    /// Opens the message as a draft. The attachments may go as soon as it returns. Throws ELotError where no mail
    /// program takes it.
    virtual void Send(const TlotMailMessage& message) = 0;
};
