#include "desktop/cups/CupsJob.h"

#include <array>
#include <charconv>
#include <chrono>
#include <random>
#include <thread>
#include <utility>

#include "base/RuntimeError.h"
#include "desktop/regfile/UserFolders.h"

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

/// 128 bits of chance: no two documents of any program have the same.
std::string NewMark() {
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr int length = 32;
    std::random_device chance;
    std::uniform_int_distribution<std::size_t> digit(0, digits.size() - 1);
    std::string mark;
    for (int i = 0; i < length; ++i) {
        mark += digits[digit(chance)];
    }
    return mark;
}

/// 0 if the text is no number.
int NumberIn(const std::string& text) {
    int number = 0;
    const char* const end = text.data() + text.size();
    return std::from_chars(text.data(), end, number).ptr == end ? number : 0;
}

base::RuntimeError LostAnswer(const std::string& printer, int number) {
    const std::string which =
        number == 0 ? "" : ", als opdracht " + std::to_string(number) + " van printer " + printer;
    return base::RuntimeError(base::ErrorPrinter,
                              std::string(LostAnswerText) + which + ".\n" + LookFirstText);
}

} // namespace

std::string SpoolFolder() {
    const std::string folder = regfile::UserFolder("XDG_CACHE_HOME", "/.cache");
    return folder.empty() ? folder : folder + "/drukkeuring/spool";
}

CupsJob::CupsJob(std::shared_ptr<CupsServer> server, const std::string& queue, const std::string& queueUri,
                 const std::string& title, const CupsOptions& options)
    : server_(std::move(server)), queue_(queue), queueUri_(queueUri), title_(title), mark_(NewMark()),
      options_(options), file_(SpoolFolder(), server_->Reason()) {}

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
            return NumberIn(ValueOf(job, "job-id"));
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
