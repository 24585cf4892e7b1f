// SPDX-License-Identifier: MIT
// Gives up the superuser's rights, because no permission stops the superuser.
#pragma once

#include <unistd.h>

#include <cstdlib>

namespace quillon::test {

// The rights come back when it is destroyed. Does nothing for any other user.
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
