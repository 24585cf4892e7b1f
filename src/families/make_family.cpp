// SPDX-License-Identifier: MIT
#include "families/make_family.h"

#include <algorithm>

#include "areas/areas14.h"
#include "families/flash14.h"
#include "families/generic.h"
#include "families/operation.h"

namespace quillon {

std::unique_ptr<Family> make_family(Module module, RunContext& context) {
    if (module == Module::Generic) return make_generic(context);
    const auto rows = modules14();
    const auto row = std::ranges::find(rows, module, &Module14::module);
    if (row == rows.end()) return nullptr;
    return std::make_unique<Operation>(context, std::make_unique<Areas14>(context, row->areas),
                                       row->operation);
}

}  // namespace quillon
