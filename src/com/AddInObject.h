// The add-in as the IDE holds it: an object with the IDE's interface for add-ins, by its v-table
// and by Invoke. It hands each call to the add-in proper (VBE.h) with the object model of the IDE
// that calls. The first OnConnection makes both, OnDisconnection ends them.
//
// Nothing that fails inside leaves it. Calls that come while the add-in's window is open reach it
// through the window's loop: a connection or a click is passed over then, and a disconnection
// closes the window and waits for its end.
#pragma once

#include <memory>

#include "ComIDE.h"
#include "ComObject.h"
#include "IComEntry.h"

/// The IDE's interface for add-ins, in the order of its v-table, which is the order of its numbers
/// from 1. Lists of further arguments may be null.
struct IComAddIn : public IDispatch {
  virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* root, long mode, IDispatch* entry,
                                                 SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnDisconnection(long mode, SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
};
inline constexpr GUID AddInInterfaceId = {0x0002E151, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/// What the library is beside its COM side.
class IAddInProgram {
 public:
  virtual ~IAddInProgram() = default;
  virtual std::unique_ptr<IDTExtensibility> MakeAddIn() = 0;
  /// Whether the add-in's window keeps objects of the IDE's group.
  virtual bool HoldsGroup(const IDTExtensibility& addIn) = 0;
  virtual void CloseWindow(IDTExtensibility& addIn) = 0;
  /// Windows stand above the main window of this IDE from now on; null: of none.
  virtual void SetIDE(const ComIDE* ide) = 0;
};

class AddInObject final : public ComObject<IComAddIn>, private IComEntry {
 public:
  /// The program outlives the object.
  explicit AddInObject(IAddInProgram& program) : mProgram(program) {}
  ~AddInObject() override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                   VARIANT*, EXCEPINFO*, UINT*) override;

  HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* root, long mode, IDispatch* entry,
                                         SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnDisconnection(long mode, SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) override;

 protected:
  bool Offers(REFIID iid) const override;

 private:
  bool EnterAlone() noexcept override;
  void Leave() noexcept override;
  template <class Work>
  HRESULT Alone(Work&& work);
  void Disconnect(long mode) noexcept;

  IAddInProgram& mProgram;
  std::unique_ptr<ComIDE> mIDE;  // outlives what uses it
  std::unique_ptr<IDTExtensibility> mAddIn;
  bool mInside = false, mUpdating = false, mDisconnects = false;
  long mDisconnectMode = 0;
};
