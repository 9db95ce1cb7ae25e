#include "app/app.h"

#include "platform/console.h"

namespace hostsweep {

App& App::Current() {
  auto* const application = dynamic_cast<App*>(ApplicationRegistration::Registered());
  if (application == nullptr) throw NilObjectException();
  return *application;
}

bool App::UnhandledException(const RuntimeException& /*error*/) { Quit(0); }

}  // namespace hostsweep
