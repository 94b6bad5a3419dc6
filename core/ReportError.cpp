// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ReportError.h"

#include <new>
#include <string>

#include "core/ColumnLine.h"
#include "core/Globals.h"
#include "core/LineWriter.h"
#include "core/basGeneral.h"
#include "core/basHelp.h"

namespace Dorvane {

namespace {

// The wording of the nine errors that the reporter knows; empty for every other number.
std::string KnownText(int number) {
    switch (number) {
        case BadFileName: return "File Name entered is illegal.";
        case BadFileMode: return "Can't open file for that type of access.  File may be Read Only.";
        case FileAlreadyOpen: return "File is already open.";
        case DeviceIoError: return "Internal disk error.";
        case DiskFull: return "Disk is full. Continue?";
        case InputPastEnd:
            return "File has a nonstandard end-of-file marker, or an attempt was made to read beyond the "
                   "end-of-file marker.";
        case DeviceUnavailable: return "Device appears unavailable.";
        case DiskNotReady: return "Insert a disk in the drive and close the door.";
        case PathNotFound: return "Path doesn't exist.";
        default: return "";
    }
}

ActionCode CodeOf(Answer answer) {
    switch (answer) {
        case Answer::Ok:
        case Answer::Retry:
        case Answer::Yes: return Retry;
        case Answer::Ignore: return Skip;
        case Answer::Cancel:
        case Answer::Abort:
        case Answer::No: return GiveUp;
    }
    return UnknownError;
}

// Where the drives themselves are what failed there is no help file to name.
std::string HelpFileIfThere() {
    try {
        return HelpFile();
    } catch (const std::exception&) {
        return "";
    }
}

Message MessageFor(const RunTimeError& error, const std::string& source) {
    const std::string known = KnownText(error.Number);
    Message message;
    message.Title = "Program Error";
    message.Picture = Icon::Exclamation;
    message.Text = "Error : " + std::to_string(error.Number) + "\r\n\r\n";
    message.Text += known.empty() ? "Description : " + error.Description : known;
    message.Text += "\r\n\r\nSource : " + source;
    if (!known.empty()) {
        message.Choices = error.Number == DiskFull ? Buttons::YesNo : Buttons::RetryCancel;
        message.HasHelp = true;
        message.HelpFile = HelpFileIfThere();
        message.HelpContext = error.Number;
    }
    return message;
}

void AppendToLog(const RunTimeError& error, const std::string& source) {
    const std::string moment = GeneralDate(TheDesktop().Now());
    LineAppender log(AppPath() + "ERROR.LOG");
    log.Line(ColumnLine().At(1, moment).At(20, "Error : " + std::to_string(error.Number)).Text());
    log.Line(ColumnLine().At(20, "Description : " + error.Description).Text());
    log.Line(ColumnLine().At(20, "Source : " + source).Text());
    log.Close();
}

// Reports the failure that is being caught. One that the system does not raise itself is an internal error.
ActionCode ReportCaught(std::string_view procedure) {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return ReportError(error, procedure);
    } catch (const std::bad_alloc&) {
        return ReportError(RunTimeError(OutOfMemory), procedure);
    } catch (const std::exception& failure) {
        return ReportError(RunTimeError(InternalError, failure.what()), procedure);
    }
}

}  // namespace

ActionCode ReportError(const RunTimeError& error, std::string_view procedure) {
    const std::string source = error.Source + "-" + std::string(procedure);
    const Answer answer = TheDesktop().ShowMessage(MessageFor(error, source));
    try {
        AppendToLog(error, source);
    } catch (const std::exception&) {
        // A program folder that cannot be written must not turn one failure into two: the dialog has told it.
    }
    return KnownText(error.Number).empty() ? UnknownError : CodeOf(answer);
}

bool Guard::Run(const std::function<void()>& statement) {
    for (;;) {
        ActionCode code = UnknownError;
        try {
            statement();
            return true;
        } catch (const std::exception&) {
            code = ReportCaught(Procedure);
        }
        if (code == Skip)
            return false;
        if (code != Retry)
            throw LeaveProcedure{this};
    }
}

bool Guarded(std::string_view procedure, const std::function<void(Guard&)>& body) {
    Guard guard(procedure);
    try {
        body(guard);
        return true;
    } catch (const Guard::LeaveProcedure& leave) {
        if (leave.Of != &guard)
            throw;
    } catch (const std::exception&) {
        ReportCaught(procedure);
    }
    return false;
}

}  // namespace Dorvane
