#include "tests/fake_jvm/objects.h"

#include <memory>
#include <unordered_set>

#include "tests/fake_jvm/call_log.h"
#include "tests/fake_jvm/script.h"

namespace fake_jvm {

namespace {

struct Reference {
    Object* object = nullptr;
    DWORD thread = 0;
    bool deleted = false;
};

std::unordered_set<const void*>& KnownReferences() {
    static std::unordered_set<const void*> known;
    return known;
}

std::vector<std::unique_ptr<Object>>& Classes() {
    static std::vector<std::unique_ptr<Object>> classes;
    return classes;
}

std::vector<std::unique_ptr<Method>>& Methods() {
    static std::vector<std::unique_ptr<Method>> methods;
    return methods;
}

Reference* Known(jobject reference, const char* use) {
    if (KnownReferences().contains(reference)) return reinterpret_cast<Reference*>(reference);
    LogViolation(std::string(use) + " of something that is no reference");
    return nullptr;
}

}  // namespace

Object* NewObject(Kind kind, std::string className) {
    auto* const object = new Object;
    object->kind = kind;
    object->className = std::move(className);
    return object;
}

Object* NewString(std::u16string text) {
    Object* const object = NewObject(Kind::String, "java/lang/String");
    object->text = std::move(text);
    return object;
}

Object* NewThrowable(std::string className, std::string message) {
    Object* const object = NewObject(Kind::Plain, std::move(className));
    object->text = FromUtf8(message);
    return object;
}

Object* ClassNamed(std::string_view name) {
    for (const auto& known : Classes()) {
        if (known->className == name) return known.get();
    }
    Classes().emplace_back(NewObject(Kind::Class, std::string(name)));
    return Classes().back().get();
}

Method* MethodOf(Object* owner, std::string_view name, std::string_view signature, bool isStatic) {
    for (const auto& known : Methods()) {
        if (known->owner == owner && known->name == name && known->signature == signature &&
            known->isStatic == isStatic) {
            return known.get();
        }
    }
    Methods().push_back(std::make_unique<Method>(
        Method{owner, std::string(name), std::string(signature), isStatic}));
    return Methods().back().get();
}

jobject NewReference(Environment* environment, Object* object) {
    if (object == nullptr) return nullptr;
    auto* const reference = new Reference{object, environment->thread, false};
    KnownReferences().insert(reference);
    ++environment->localReferences;
    auto* const handle = reinterpret_cast<jobject>(reference);
    if (Script::Get().HasLine("forget")) environment->references.push_back(handle);
    return handle;
}

Object* Resolve(Environment* environment, jobject handle) {
    if (handle == nullptr) return nullptr;
    Reference* const reference = Known(handle, "use");
    if (reference == nullptr) return nullptr;
    if (reference->deleted) {
        LogViolation("use of a deleted reference to " + Describe(reference->object));
    } else if (reference->thread != environment->thread) {
        LogViolation("use of another thread's reference to " + Describe(reference->object));
    }
    return reference->object;
}

void DeleteReference(Environment* environment, jobject handle) {
    if (handle == nullptr) return;
    Reference* const reference = Known(handle, "deletion");
    if (reference == nullptr) return;
    if (reference->deleted) {
        LogViolation("second deletion of a reference to " + Describe(reference->object));
        return;
    }
    reference->deleted = true;
    --environment->localReferences;
}

void ForgetReferences(Environment* environment) {
    std::unordered_set<Object*> objects(environment->thrown.begin(), environment->thrown.end());
    for (const jobject handle : environment->references) {
        KnownReferences().erase(handle);
        const std::unique_ptr<Reference> reference(reinterpret_cast<Reference*>(handle));
        if (reference->object->kind != Kind::Class) objects.insert(reference->object);
    }
    for (Object* const object : objects) delete object;
    environment->references.clear();
    environment->references.shrink_to_fit();
    environment->thrown.clear();
    environment->thrown.shrink_to_fit();
    environment->pending = nullptr;
    environment->localReferences = 0;
}

Method* Resolve(jmethodID id) {
    for (const auto& known : Methods()) {
        if (static_cast<const void*>(known.get()) == static_cast<const void*>(id)) {
            return known.get();
        }
    }
    LogViolation("call through something that is no method");
    return nullptr;
}

std::string Describe(const Object* object) {
    if (object == nullptr) return "null";
    switch (object->kind) {
        case Kind::Class:
            return "class " + object->className;
        case Kind::String:
            return QuoteText(object->text);
        case Kind::CharArray:
            return "char[" + std::to_string(object->text.size()) + "]";
        case Kind::ObjectArray: {
            std::string text = "[";
            for (const Object* element : object->elements) {
                if (text.size() > 1) text += ", ";
                text += Describe(element);
            }
            return text + "]";
        }
        case Kind::Plain:
            break;
    }
    return "object " + object->className;
}

std::string Describe(const Method& method) {
    return method.owner->className + "." + method.name + method.signature;
}

}  // namespace fake_jvm
