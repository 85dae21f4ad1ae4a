#include "Workbench.h"

#include "Printers.h"

void Workbench::ManageControls() {
  form.oMenu.WorkOutButtons();
  form.tvwProjects.SetEnabled(HasModel());
  form.oMenu.WorkOutTitles();
}

bool Workbench::HasPrinter() {
  std::int32_t count = 0;
  OnEvent(u"HasPrinter", [&] { count = printers.Count(); });
  return count > 0;
}
