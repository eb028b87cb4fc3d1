// SPDX-License-Identifier: GPL-3.0-or-later
//
// The commands of the tool. Each registers its words and, once they are parsed, runs on a session. A command answers
// by returning; failures are thrown.
#pragma once

#include "reporting/lotCashflowSheet.h"
#include "tool/toolSession.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

class TToolCommand {
public:
    TToolCommand() = default;
    TToolCommand(const TToolCommand&) = delete;
    TToolCommand& operator=(const TToolCommand&) = delete;
    virtual ~TToolCommand() = default;

    /// Adds itself to the parser; its words land in it.
    virtual CLI::App* Register(CLI::App& app) = 0;
    virtual void Run(TToolSession& session) = 0;
};

/// `calc FILE`: computes and prints.
class TCalcCommand final : public TToolCommand {
public:
    CLI::App* Register(CLI::App& app) override;
    void Run(TToolSession& session) override;

private:
    std::string FFile;
    bool FJson = false;
    int FPasses = 1;
};

/// `new OUT`: the built-in default project.
class TNewCommand final : public TToolCommand {
public:
    CLI::App* Register(CLI::App& app) override;
    void Run(TToolSession& session) override;

private:
    std::string FOut;
};

/// `test-project OUT`: the built-in sample data.
class TTestProjectCommand final : public TToolCommand {
public:
    CLI::App* Register(CLI::App& app) override;
    void Run(TToolSession& session) override;

private:
    std::string FOut;
};

/// `convert IN OUT`: any version in, the present one out.
class TConvertCommand final : public TToolCommand {
public:
    CLI::App* Register(CLI::App& app) override;
    void Run(TToolSession& session) override;

private:
    std::string FIn;
    std::string FOut;
};

/// `solve FILE`: the site value for a wanted measure.
class TSolveCommand final : public TToolCommand {
public:
    CLI::App* Register(CLI::App& app) override;
    void Run(TToolSession& session) override;

private:
    std::string FFile;
    std::string FMeasure;
    double FTarget = 0;
    bool FJson = false;
};

/// `cashflow FILE OUT`: the cashflow sheet as a workbook or as comma-separated values.
class TCashflowCommand final : public TToolCommand {
public:
    CLI::App* Register(CLI::App& app) override;
    void Run(TToolSession& session) override;

private:
    std::string FFile;
    std::string FOut;
    TlotCashflowSheetOptions FOptions;
};

[[nodiscard]] std::vector<std::unique_ptr<TToolCommand>> AllToolCommands();
