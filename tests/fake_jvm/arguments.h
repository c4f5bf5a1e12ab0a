#pragma once

#include <jni.h>

#include <cstdarg>
#include <string_view>
#include <vector>

namespace fake_jvm {

/// The arguments of a call in the order of the method's signature.
inline std::vector<jvalue> ReadArguments(std::string_view signature, va_list list) {
    std::vector<jvalue> values;
    for (std::size_t at = 1; at < signature.size() && signature[at] != ')'; ++at) {
        jvalue value{};
        switch (signature[at]) {
            case 'Z':
                value.z = static_cast<jboolean>(va_arg(list, int));
                break;
            case 'J':
                value.j = va_arg(list, jlong);
                break;
            case 'F':
                value.f = static_cast<jfloat>(va_arg(list, double));
                break;
            case 'D':
                value.d = va_arg(list, double);
                break;
            case 'L':
            case '[':
                value.l = va_arg(list, jobject);
                break;
            default:
                value.i = va_arg(list, int);
                break;
        }
        values.push_back(value);
        while (signature[at] == '[') ++at;
        if (signature[at] == 'L') at = signature.find(';', at);
    }
    return values;
}

inline std::vector<jvalue> ReadArguments(std::string_view signature, const jvalue* array) {
    std::vector<jvalue> values;
    for (std::size_t at = 1; at < signature.size() && signature[at] != ')'; ++at) {
        values.push_back(array[values.size()]);
        while (signature[at] == '[') ++at;
        if (signature[at] == 'L') at = signature.find(';', at);
    }
    return values;
}

}  // namespace fake_jvm
