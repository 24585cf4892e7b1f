// SPDX-License-Identifier: MIT
// A user with no rights beyond his own: the superuser, whom no permission stops, steps down.
#pragma once

#include <unistd.h>

#include <cstdlib>

namespace quillon::test {

// For as long as it lives.
class OrdinaryUser {
  public:
    OrdinaryUser() : stepped_down_{::geteuid() == 0 && ::seteuid(65534) == 0} {}
    ~OrdinaryUser() {
        if (stepped_down_ && ::seteuid(0) != 0) std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  private:
    bool stepped_down_;
};

}  // namespace quillon::test
