// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_OUTPUT_DOCUMENT_H_
#define L5KOV_TOOLS_KOVCTL_OUTPUT_DOCUMENT_H_

#include <string>

#include "output/console.h"

namespace kovctl {

/// The start of every JSON document: its kind ("kovctl-list") and the version of its schema, which
/// lies in schema/list.schema.json.
Json documentOf(const std::string& kind);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_OUTPUT_DOCUMENT_H_
