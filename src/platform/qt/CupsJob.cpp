#include "platform/qt/CupsJob.h"

#include "platform/RuntimeError.h"

#include <QStandardPaths>

#include <utility>

namespace platform::qt {

namespace {

/// True for a failure that the server tells without an answer to the request itself.
bool IsRefusal(ipp_status_t status) {
    return status == IPP_STATUS_ERROR_FORBIDDEN || status == IPP_STATUS_ERROR_NOT_AUTHENTICATED ||
           status == IPP_STATUS_ERROR_NOT_AUTHORIZED ||
           status == IPP_STATUS_ERROR_CUPS_AUTHENTICATION_CANCELED;
}

} // namespace

QString SpoolFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/drukkeuring/spool");
}

CupsJob::CupsJob(std::shared_ptr<CupsServer> server, const std::string& queue, const std::string& queueUri,
                 const std::string& title, const CupsOptions& options)
    : server_(std::move(server)), queue_(queue), queueUri_(queueUri), title_(title), options_(options),
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
                                     ResourceOf(queueUri_).c_str(), file_.handle(), toMemory));
    }
    if (answer == nullptr && (connection == nullptr || !IsRefusal(cupsLastError()))) {
        throw RuntimeError(ErrorPrinter, NoAnswerText);
    }
    if (answer == nullptr || ippGetStatusCode(answer.get()) >= IPP_STATUS_REDIRECTION_OTHER_SITE) {
        const char* const reason = cupsLastErrorString();
        throw RuntimeError(ErrorPrinter, "De printer " + queue_ + " heeft het document niet aangenomen.\n" +
                                             (reason == nullptr ? "" : reason));
    }
}

} // namespace platform::qt
