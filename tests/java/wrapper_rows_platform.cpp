// SPDX-License-Identifier: MIT
#include "tests/java/wrapper_rows.h"

namespace kovtest {

using kov::JArrayList;
using kov::JDouble;
using kov::JInteger;
using kov::JList;

std::vector<WrapperRow> platformRows() {
  const auto answer = std::make_shared<fakejvm::Object>("java/lang/Object", "answer");
  return {
      creation<JArrayList>("()V", "",
                           [](const Arguments& a) { return shown(JArrayList::create(a.env)); }),
      row<JArrayList>(
          "add(Ljava/lang/Object;)Z", true,
          [](auto& w, const Arguments& a) { return shown(w.add(a.element)); },
          guarded("CallBooleanMethodV ArrayList.add(element)"), "true"),
      row<JArrayList>(
          "get(I)Ljava/lang/Object;", answer, [](auto& w, auto&) { return shown(w.get(3)); },
          guarded("CallObjectMethodV ArrayList.get(3)"), "answer"),
      intGetter<JArrayList>("size", [](auto& w, auto&) { return shown(w.size()); }),

      creation<JInteger>("(I)V", "-5",
                         [](const Arguments& a) { return shown(JInteger::create(a.env, -5)); }),
      intGetter<JInteger>("intValue", [](auto& w, auto&) { return shown(w.intValue()); }),

      creation<JDouble>("(D)V", "0.25",
                        [](const Arguments& a) { return shown(JDouble::create(a.env, 0.25)); }),
      doubleGetter<JDouble>("doubleValue", [](auto& w, auto&) { return shown(w.doubleValue()); }),

      intGetter<JList>("size", [](auto& w, auto&) { return shown(w.size()); }),
      row<JList>(
          "get(I)Ljava/lang/Object;", answer, [](auto& w, auto&) { return shown(w.get(3)); },
          guarded("CallObjectMethodV List.get(3)"), "answer"),
  };
}

}  // namespace kovtest
