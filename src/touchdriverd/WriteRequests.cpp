#include "touchdriverd/WriteRequests.h"

#include <algorithm>
#include <utility>

#include "touchdriverd/BusErrors.h"

namespace touchpanel::driver {

namespace {
constexpr std::size_t kMostRequests = 1024;
constexpr std::ptrdiff_t kMostRequestsOfAClient = 4;

template <typename Answer>
void send(const Answer& answer) {
  try {
    answer();
  } catch (const sdbus::Error&) {
    // The connection is lost; whoever waits for its descriptor notices.
  }
}

void answer(const WriteRequest& request, Status status) {
  if (request.taken && isInForce(status)) request.taken();
  if (status == kSuccess)
    request.reply.returnResults();
  else
    request.reply.returnError(request.errorOf(status, request.name));
}
}  // namespace

std::uint64_t WriteRequests::opened(WriteRequest request) {
  const auto ofClient =
      std::ranges::count_if(*open_, [&](const auto& open) { return open.second.client == request.client; });
  if (open_->size() >= kMostRequests || ofClient >= kMostRequestsOfAClient) {
    send([&] { request.reply.returnError(refusal(kErrorExclusiveAccess)); });
    return 0;
  }
  open_->emplace(++last_, std::move(request));
  return last_;
}

WriteRequests::Done WriteRequests::answering(std::weak_ptr<Open> all, std::uint64_t number) {
  return [all = std::move(all), number](Status status) {
    const auto open = all.lock();
    const auto finished = open ? open->extract(number) : Open::node_type();
    if (!finished.empty()) send([&] { answer(finished.mapped(), status); });
  };
}

void WriteRequests::take(WriteRequest request, Authority::Asking asking, Write write) {
  const auto client = request.client;
  const auto number = opened(std::move(request));
  if (number == 0) return;
  authority_.check(client, asking,
                   [all = std::weak_ptr(open_), number, write = std::move(write)](Status permitted) {
                     const auto open = all.lock();
                     if (!open || !open->contains(number)) return;
                     if (permitted == kSuccess) return write(answering(open, number));
                     const auto refused = open->extract(number);
                     send([&] { refused.mapped().reply.returnError(refusal(permitted)); });
                   });
}

void WriteRequests::takeUnchecked(WriteRequest request, const Write& write) {
  if (const auto number = opened(std::move(request)); number != 0) write(answering(open_, number));
}

void WriteRequests::clientLeft(const std::string& client) {
  std::erase_if(*open_, [&](const auto& open) { return open.second.client == client; });
}

}  // namespace touchpanel::driver
