// The scripted class library: the methods that a launcher calls by name.

#include "tests/fake_jvm/call_log.h"
#include "tests/fake_jvm/vm.h"

namespace fake_jvm {

namespace {

jvalue Reference(Environment* environment, Object* object) {
    jvalue value{};
    value.l = NewReference(environment, object);
    return value;
}

void OpenFile(Environment* environment, Object* stream, const Object* name, bool append) {
    const std::wstring path(name->text.begin(), name->text.end());
    // Java opens its files for shared access.
    const HANDLE file = CreateFileW(
        path.c_str(), append ? FILE_APPEND_DATA : GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
        nullptr, append ? OPEN_ALWAYS : CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        Throw(environment, "java/io/FileNotFoundException", ToUtf8(name->text));
        return;
    }
    stream->file = file;
}

void Construct(Environment* environment, Object* object, const Method& constructor,
               const std::vector<Object*>& objects, const std::vector<jvalue>& values) {
    const std::string& name = constructor.owner->className;
    if (name == "java/lang/String" && constructor.signature == "([C)V") {
        object->text = objects.at(0)->text;
    } else if (name == "java/io/FileOutputStream") {
        OpenFile(environment, object, objects.at(0), values.at(1).z != 0);
    } else if (name == "java/io/PrintStream") {
        object->stream = objects.at(0);
    }
}

void LoadMainClass(Environment* environment, const Object* name, jvalue& result) {
    const std::string wish = Script::Get().Value("load_and_main", "class");
    if (wish == "throw") {
        Throw(environment, "java/lang/NoClassDefFoundError", ToUtf8(name->text));
    } else if (wish == "class") {
        std::string slashed = ToUtf8(name->text);
        for (char& unit : slashed) {
            if (unit == '.') unit = '/';
        }
        result = Reference(environment, ClassNamed(slashed));
    }
}

}  // namespace

jvalue Invoke(Environment* environment, Object* receiver, const Method& method,
              const std::vector<jvalue>& arguments) {
    std::vector<Object*> objects;
    std::size_t index = 0;
    for (std::size_t at = 1; at < method.signature.size() && method.signature[at] != ')'; ++at) {
        const char type = method.signature[at];
        const bool isReference = type == 'L' || type == '[';
        objects.push_back(isReference ? Resolve(environment, arguments.at(index).l) : nullptr);
        while (method.signature[at] == '[') ++at;
        if (method.signature[at] == 'L') at = method.signature.find(';', at);
        ++index;
    }

    const std::string& owner = method.owner->className;
    VirtualMachine& machine = VirtualMachine::Get();
    jvalue result{};
    if (method.name == "<init>") {
        Construct(environment, receiver, method, objects, arguments);
    } else if (method.name == "checkAndLoadMain") {
        LoadMainClass(environment, objects.at(2), result);
    } else if (owner == "java/lang/System" && method.name == "setOut") {
        machine.standardOutput = objects.at(0);
    } else if (owner == "java/lang/System" && method.name == "setErr") {
        machine.standardError = objects.at(0);
    } else if (owner == "java/lang/System" && method.name == "exit") {
        if (!Script::Get().Has("system_exit")) ExitProcessLikeJava(arguments.at(0).i);
        RunActions(environment, "system_exit");
    } else if (method.name == "printStackTrace") {
        const std::string trace = Unescape(Script::Get().Value(
            "trace", receiver->className + ": " + ToUtf8(receiver->text) + "\\r\\n\\tat scripted"));
        Object* const stream = objects.at(0)->stream;
        if (stream != nullptr) stream->bytes += trace;
        RunActions(environment, "print_stack_trace");
    } else if (method.name == "toString") {
        result = Reference(environment, NewString(FromUtf8(receiver->bytes)));
        RunActions(environment, "to_string");
    } else {
        // The application's own methods: main, secondaryMain and any that a test names.
        result.i = RunActions(environment, method.name);
    }
    return result;
}

}  // namespace fake_jvm
