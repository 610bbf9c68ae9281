#include "desktop/cups/CupsServer.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include <sys/socket.h>

namespace desktop::cups {

namespace {

using std::chrono::milliseconds;

/// The library first waits so long for the server's leave to send a request, whatever its time-out.
constexpr milliseconds GoAhead{1000};

/// The library would ask at the terminal that the program was started from, and wait there.
const char* NoPassword(const char*, http_t*, const char*, const char*, void*) {
    return nullptr;
}

std::string TextOf(ipp_attribute_t* attribute, int index) {
    switch (ippGetValueTag(attribute)) {
    case IPP_TAG_INTEGER:
    case IPP_TAG_ENUM:
        return std::to_string(ippGetInteger(attribute, index));
    case IPP_TAG_BOOLEAN:
        return ippGetBoolean(attribute, index) != 0 ? "true" : "false";
    case IPP_TAG_RESOLUTION: {
        int down = 0;
        ipp_res_t unit = IPP_RES_PER_INCH;
        const int across = ippGetResolution(attribute, index, &down, &unit);
        return std::to_string(across) + 'x' + std::to_string(down) +
               (unit == IPP_RES_PER_INCH ? "dpi" : "dpcm");
    }
    default: {
        const char* text = ippGetString(attribute, index, nullptr);
        return text == nullptr ? "" : text;
    }
    }
}

} // namespace

void CloseHttp::operator()(http_t* http) const {
    if (!ForDocument) {
        Server->Waited(Begun);
    }
    httpClose(http);
}

CupsServer::CupsServer(SystemReason reason) : reason_(std::move(reason)) {
    cupsSetPasswordCB2(NoPassword, nullptr);
}

int CupsServer::GiveUp(http_t*, void* server) {
    auto* self = static_cast<CupsServer*>(server);
    self->spent_ = Patience;
    self->lastSpent_ = self->lastFailure_ = Clock::now();
    return 0;
}

milliseconds CupsServer::PatienceLeft() {
    if (Clock::now() - lastSpent_ > Rest) {
        spent_ = milliseconds(0);
    }
    return Patience - std::min(spent_, Patience);
}

void CupsServer::Waited(Clock::time_point since) {
    const auto time = std::chrono::duration_cast<milliseconds>(Clock::now() - since);
    if (time > Prompt) {
        spent_ += time;
        lastSpent_ = Clock::now();
    }
}

CupsConnection CupsServer::Open(Purpose purpose) {
    const Clock::time_point begun = Clock::now();
    CupsConnection connection(nullptr, {this, begun, purpose == Purpose::Document});
    // A server that is slow but answers is good for a document, however long the preparation took.
    const bool isAnswering = begun - lastFailure_ > Rest;
    const milliseconds patience = purpose == Purpose::Document && isAnswering ? Patience : PatienceLeft();
    const milliseconds goAhead = purpose == Purpose::File ? milliseconds(0) : GoAhead;
    if (patience <= goAhead) {
        return connection;
    }
    connection.reset(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                  static_cast<int>(patience.count()), nullptr));
    if (connection == nullptr) {
        lastFailure_ = Clock::now();
        Waited(begun);
        return connection;
    }
    const auto connecting = std::chrono::duration_cast<milliseconds>(Clock::now() - begun);
    const milliseconds left = patience - connecting - goAhead;
    if (left <= milliseconds(0)) {
        connection.reset();
    } else {
        httpSetTimeout(connection.get(), static_cast<double>(left.count()) / 1000, GiveUp, this);
    }
    return connection;
}

CupsConnection CupsServer::Connect() {
    return Open(Purpose::Question);
}

CupsConnection CupsServer::ConnectForFile() {
    return Open(Purpose::File);
}

CupsConnection CupsServer::ConnectForDocument() {
    return Open(Purpose::Document);
}

IppMessage NewRequest(ipp_op_t operation, const std::string& queueUri) {
    IppMessage request(ippNewRequest(operation));
    if (!queueUri.empty()) {
        ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, queueUri.c_str());
    }
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
    return request;
}

std::string ResourceOf(const std::string& queueUri) {
    const std::size_t host = queueUri.find("://");
    const std::size_t path = host == std::string::npos ? host : queueUri.find('/', host + 3);
    if (path == std::string::npos) {
        return "/";
    }
    std::string resource;
    for (std::size_t at = path; at < queueUri.size(); ++at) {
        unsigned value = 0;
        const char* const digits = queueUri.c_str() + at + 1;
        const auto parsed =
            std::from_chars(digits, std::min(digits + 2, queueUri.c_str() + queueUri.size()), value, 16);
        if (queueUri[at] == '%' && parsed.ptr == digits + 2 && value != 0) {
            resource += static_cast<char>(value);
            at += 2;
        } else {
            resource += queueUri[at];
        }
    }
    return resource;
}

IppMessage Ask(http_t* http, IppMessage request) {
    IppMessage answer(cupsDoRequest(http, request.release(), "/")); // takes the request with it
    if (answer != nullptr && ippGetStatusCode(answer.get()) >= IPP_STATUS_REDIRECTION_OTHER_SITE) {
        answer.reset();
    }
    return answer;
}

CupsAttributes ReadAttributes(ipp_t* answer, ipp_attribute_t*& at) {
    CupsAttributes attributes;
    for (; at != nullptr && ippGetName(at) != nullptr; at = ippNextAttribute(answer)) {
        std::string text;
        for (int i = 0; i < ippGetCount(at); ++i) {
            if (i > 0) {
                text += ',';
            }
            text += TextOf(at, i);
        }
        attributes[ippGetName(at)] = text;
    }
    return attributes;
}

std::string ValueOf(const std::map<std::string, std::string>& values, const std::string& name) {
    const auto found = values.find(name);
    return found == values.end() ? std::string() : found->second;
}

} // namespace desktop::cups
