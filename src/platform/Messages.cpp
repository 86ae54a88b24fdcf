#include "platform/Messages.h"

#include "platform/QtMessages.h"

using namespace Qt::StringLiterals;

namespace {
std::unique_ptr<Messages>& current() {
    static std::unique_ptr<Messages> service;
    return service;
}
} // namespace

Messages::~Messages() = default;

QString Messages::caption() {
    return u"Quorvane 2.5"_s;
}

Messages& Messages::instance() {
    if (!current())
        current() = std::make_unique<QtMessages>();
    return *current();
}

std::unique_ptr<Messages> Messages::install(std::unique_ptr<Messages> service) {
    std::unique_ptr<Messages> previous = std::move(current());
    current() = std::move(service);
    return previous;
}
