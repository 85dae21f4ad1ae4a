// Synchronous event: handlers run in the order of their connection, on the caller's thread.
//
//   Signal<TextView> ReportError;
//   auto oLink = ReportError.Connect([&](TextView s) { ... });   // ends with oLink
//   ReportError(u"Processing ...");
#pragma once

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
  explicit Connection(std::shared_ptr<void> pToken) : mpToken(std::move(pToken)) {}
  void Disconnect() { mpToken.reset(); }

 private:
  std::shared_ptr<void> mpToken;
};

template <class... Args>
class Signal {
 public:
  using Handler = std::function<void(Args...)>;

  Connection Connect(Handler oHandler) {
    auto pHandler = std::make_shared<Handler>(std::move(oHandler));
    moHandlers.push_back(pHandler);
    return Connection(pHandler);
  }

  /// Raises the event. A handler may connect or disconnect others meanwhile.
  void operator()(Args... args) {
    for (std::size_t i = 0; i < moHandlers.size(); ++i) {
      if (auto pHandler = moHandlers[i].lock()) (*pHandler)(args...);
    }
    std::erase_if(moHandlers, [](const auto& pWeak) { return pWeak.expired(); });
  }

 private:
  std::vector<std::weak_ptr<Handler>> moHandlers;
};
