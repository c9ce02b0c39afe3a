// What the rules share with the program around them: texts, output and ticks.
#ifndef MORV_SHELL
#define MORV_SHELL

#include <string>

// Tells the operator; the rules go on.
void put_box(const char* text);
void put_box(char* text);

// The body of the project's main file: one round of inference.
void MORVmain();

namespace morv {

// A text field that takes what fits.
template <int N> class Field {
public:
    void Set(const char* text) {
        int length = 0;
        for (; length < N - 1 && text[length] != '\0'; ++length)
            text_[length] = text[length];
        text_[length] = '\0';
    }
    operator const char*() const { return text_; }
    operator char*() { return text_; }

private:
    char text_[N] = {};
};

// Takes every line that the runtime writes; the program shows it.
void Output(const std::string& line);

// Traces every rule, those of a system, or one by its number; or of what is traced these no more.
void SetTrace(bool on, const std::string& system = {}, const std::string& rule = {});

// One tick: the values and results until now become history, MORVmain runs, and a line tells each
// change that users watch. While a tick runs there is no other.
void Tick();

// The word for a certainty, the next lower one for a value between two.
const char* CertaintyWord(double certainty);

} // namespace morv

// The generated source fills its text fields with sprintf. Their texts come from users and are no
// formats: "%" is a unit.
template <int N> void sprintf(morv::Field<N>& field, const char* text) {
    field.Set(text);
}

#endif
