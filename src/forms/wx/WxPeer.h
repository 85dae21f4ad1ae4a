// The base of all peers: it notes what changed, and applies it when the program waits for events.
//
// A list may change thousands of times in a row; the renderer lets each peer catch up once. A peer
// passes the events of its native window to the object's User... operations, which may unload the
// form: a native handler that continues after such a call first checks that the peer still exists.
#pragma once

#include <wx/event.h>

#include <bitset>
#include <chrono>
#include <memory>

#include "IPeer.h"

class wxWindow;

namespace Forms {

class WxRenderer;

/// A set of properties.
class Changes {
 public:
  static Changes All() {
    Changes o;
    o.moBits.set();
    return o;
  }
  void Note(Property e) { moBits.set(static_cast<std::size_t>(e)); }
  bool Has(Property e) const { return moBits.test(static_cast<std::size_t>(e)); }
  bool Any() const { return moBits.any(); }

 private:
  std::bitset<32> moBits;
};

class WxPeer : public IPeer {
 public:
  explicit WxPeer(WxRenderer& oRenderer);
  WxPeer(const WxPeer&) = delete;
  WxPeer& operator=(const WxPeer&) = delete;
  ~WxPeer() override;

  void Changed(Property eProperty, std::int32_t lIndex) override;
  void Focus() override {}
  void Refresh() final;
  /// Applies what was noted. For the renderer.
  void CatchUp();
  /// Forms catch up after the controls on them, so that a window is complete when it appears.
  virtual bool IsForm() const { return false; }
  /// The window whose drawing can be locked; null for none.
  virtual wxWindow* Drawn() const { return nullptr; }
  /// Expires with the peer.
  std::weak_ptr<void> Life() const { return mpLife; }

 protected:
  virtual void Apply(const Changes& oChanges) = 0;
  virtual void PaintNow() {}
  /// Notes a property as if the object had changed it.
  void Later(Property eProperty);
  /// Notes all properties. To be called at the end of a constructor.
  void LaterAll();
  /// The last lIndex that came with Scroll since the last CatchUp; -1 for none.
  std::int32_t ScrollTarget() const { return mlScroll; }

  /// Handles an event of a native window as long as the peer exists; after that, the window handles
  /// it by itself.
  template <class Tag, class Handler>
  void Listen(wxEvtHandler& oWindow, const Tag& oTag, Handler oHandler) {
    oWindow.Bind(oTag, [pLife = Life(), oHandler](auto& oEvent) {
      pLife.expired() ? oEvent.Skip() : oHandler(oEvent);
    });
  }

  WxRenderer& moRenderer;

 private:
  Changes moChanges;
  std::int32_t mlScroll = -1;
  std::chrono::steady_clock::time_point moNextPicture;
  // Shared, because native handlers check it after the peer's end.
  std::shared_ptr<void> mpLife = std::make_shared<char>();
};

}  // namespace Forms
