#include "desktop/cups/CupsJob.h"

#include <QStandardPaths>
#include <QUuid>
#include <array>
#include <chrono>
#include <thread>
#include <utility>

#include "base/RuntimeError.h"

namespace desktop::cups {

namespace {

/// An attribute of the job that no printer knows.
constexpr const char* MarkAttribute = "drukkeuring-document";

/// A server that has lost the connection may still be taking the document in.
constexpr int LooksForTheJob = 3;
constexpr std::chrono::milliseconds LookPause{50};

/// True for a failure that the server tells without an answer to the request itself.
bool IsRefusal(ipp_status_t status) {
    return status == IPP_STATUS_ERROR_BAD_REQUEST || status == IPP_STATUS_ERROR_REQUEST_ENTITY ||
           status == IPP_STATUS_ERROR_FORBIDDEN || status == IPP_STATUS_ERROR_NOT_AUTHENTICATED ||
           status == IPP_STATUS_ERROR_NOT_AUTHORIZED ||
           status == IPP_STATUS_ERROR_CUPS_AUTHENTICATION_CANCELED;
}

base::RuntimeError LostAnswer(const std::string& printer, int number) {
    const std::string which =
        number == 0 ? "" : ", als opdracht " + std::to_string(number) + " van printer " + printer;
    return base::RuntimeError(base::ErrorPrinter,
                              std::string(LostAnswerText) + which + ".\n" + LookFirstText);
}

} // namespace

QString SpoolFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/drukkeuring/spool");
}

CupsJob::CupsJob(std::shared_ptr<CupsServer> server, const std::string& queue, const std::string& queueUri,
                 const std::string& title, const CupsOptions& options)
    : server_(std::move(server)), queue_(queue), queueUri_(queueUri), title_(title),
      mark_(QUuid::createUuid().toString(QUuid::Id128).toStdString()), options_(options),
      file_(SpoolFolder()) {}

IppMessage CupsJob::NewPrintRequest() const {
    IppMessage request = NewRequest(IPP_OP_PRINT_JOB, queueUri_);
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr, title_.c_str());
    cups_option_t* options = nullptr;
    int count = 0;
    for (const auto& [name, value] : options_) {
        count = cupsAddOption(name.c_str(), value.c_str(), count, &options);
    }
    cupsEncodeOptions2(request.get(), count, options, IPP_TAG_OPERATION);
    cupsEncodeOptions2(request.get(), count, options, IPP_TAG_JOB);
    cupsFreeOptions(count, options);
    ippAddString(request.get(), IPP_TAG_JOB, IPP_TAG_NAME, MarkAttribute, nullptr, mark_.c_str());
    return request;
}

void CupsJob::Finish() {
    file_.Rewind();
    // One request with the document in it: a failure leaves no empty job behind.
    const CupsConnection connection = server_->ConnectForDocument();
    IppMessage answer;
    if (connection != nullptr) {
        constexpr int toMemory = -1;
        answer.reset(cupsDoIORequest(connection.get(), NewPrintRequest().release(),
                                     ResourceOf(queueUri_).c_str(), file_.Number(), toMemory));
    }
    const bool isRefused = connection != nullptr && IsRefusal(cupsLastError());
    if (answer == nullptr && !isRefused) {
        if (connection != nullptr && file_.IsRead()) {
            TellLostAnswer();
        }
        throw base::RuntimeError(base::ErrorPrinter,
                                 NoAnswerText); // what was not sent to its end no server prints
    }
    if (answer == nullptr || ippGetStatusCode(answer.get()) >= IPP_STATUS_REDIRECTION_OTHER_SITE) {
        const char* const reason = cupsLastErrorString();
        throw base::RuntimeError(base::ErrorPrinter, "De printer " + queue_ +
                                                         " heeft het document niet aangenomen.\n" +
                                                         (reason == nullptr ? "" : reason));
    }
}

/// The number of the job that the document has become; 0 if the server does not tell of one.
int CupsJob::NumberAtServer() const {
    const CupsConnection connection = server_->Connect();
    if (connection == nullptr) {
        return 0;
    }
    IppMessage request = NewRequest(IPP_OP_GET_JOBS, queueUri_);
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_CONST_TAG(IPP_TAG_KEYWORD), "which-jobs", nullptr,
                 "all");
    constexpr std::array<const char*, 2> wanted = {"job-id", MarkAttribute};
    ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_CONST_TAG(IPP_TAG_KEYWORD), "requested-attributes",
                  static_cast<int>(wanted.size()), nullptr, wanted.data());
    const IppMessage answer = Ask(connection.get(), std::move(request));
    ipp_attribute_t* at = answer == nullptr ? nullptr : ippFirstAttribute(answer.get());
    while (at != nullptr) {
        const CupsAttributes job = ReadAttributes(answer.get(), at);
        if (ValueOf(job, MarkAttribute) == mark_) {
            return QByteArray::fromStdString(ValueOf(job, "job-id")).toInt();
        }
        at = ippNextAttribute(answer.get());
    }
    return 0;
}

/// Tells that the document has gone to the server and may have become a job.
void CupsJob::TellLostAnswer() const {
    int found = NumberAtServer();
    for (int looks = 1; found == 0 && looks < LooksForTheJob; ++looks) {
        std::this_thread::sleep_for(LookPause);
        found = NumberAtServer();
    }
    throw LostAnswer(queue_, found);
}

} // namespace desktop::cups
