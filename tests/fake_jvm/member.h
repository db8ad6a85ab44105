// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_MEMBER_H_
#define L5KOV_TESTS_FAKE_JVM_MEMBER_H_

#include <string>
#include <vector>

namespace fakejvm {

// A JNI signature taken apart. Types are the first characters of their descriptors: 'I', 'Z',
// 'D', 'L', '[' ...
struct Signature {
  std::vector<char> parameters;
  char result = 'V';
  // The whole descriptor of the result (or of the field).
  std::string resultType;
};

// A method signature "(IJ)V" or a field's descriptor "I", which becomes the result.
Signature parseSignature(const std::string& text);

// What a jmethodID or jfieldID points to.
struct Member {
  enum class Kind { kInstance, kStatic, kStaticField };
  Kind kind;
  std::string className;
  std::string name;
  std::string signature;
  Signature parsed;

  // "java/util/List.get(I)Ljava/lang/Object;", a field as "pkg/Status.NONE Lpkg/Status;".
  std::string text() const {
    return className + "." + name + (kind == Kind::kStaticField ? " " : "") + signature;
  }
};

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_MEMBER_H_
