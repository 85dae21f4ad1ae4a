// Synchronous event: handlers run in the order of their connection, on the caller's thread.
//
//   Signal<TextView> ReportError;
//   auto link = ReportError.Connect([&](TextView s) { ... });   // ends with link
//   ReportError(u"Processing ...");
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

/// Keeps a handler connected for as long as it lives; movable, not copyable.
class [[nodiscard]] Connection {
 public:
  Connection() = default;
  /// For Signal only: the token whose life is the connection's.
  // Shared because the signal may end before its connections do, and the other way round.
  explicit Connection(std::shared_ptr<void> token) : mToken(std::move(token)) {}
  void Disconnect() { mToken.reset(); }

 private:
  std::shared_ptr<void> mToken;
};

template <class... Args>
class Signal {
 public:
  using Handler = std::function<void(Args...)>;

  Connection Connect(Handler handler) {
    auto shared = std::make_shared<Handler>(std::move(handler));
    mHandlers.push_back(shared);
    return Connection(shared);
  }

  /// False when nobody is connected: the arguments needn't be made.
  bool IsHeard() const {
    return std::any_of(mHandlers.begin(), mHandlers.end(),
                       [](const auto& weak) { return !weak.expired(); });
  }

  /// Raises the event. A handler may connect or disconnect others meanwhile.
  void operator()(Args... args) {
    for (std::size_t i = 0; i < mHandlers.size(); ++i) {
      if (auto shared = mHandlers[i].lock()) (*shared)(args...);
    }
    std::erase_if(mHandlers, [](const auto& weak) { return weak.expired(); });
  }

 private:
  std::vector<std::weak_ptr<Handler>> mHandlers;
};
