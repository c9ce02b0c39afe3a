// The rule check done the plain way, character by character, to compare the real one with.
#pragma once

#include "check_log.h"

#include <array>

namespace zentrik_test {

class ReferenceCheck {
public:
    ReferenceCheck(std::string text, int anul) : file_(std::move(text)), Anul(anul) {}

    void Check(const std::vector<RuleIndexRecord>& index) {
        for (const RuleIndexRecord& record : index)
            CheckRule(record);
    }

    std::vector<std::string> findings;
    int anul() const { return Anul; }

private:
    static const std::array<std::string, 19>& Com() {
        static const std::array<std::string, 19> words = {
            "Rule",    "EndRule", "ForAll",   "EndForAll", "If",       "EndIf", "IfOr",
            "EndIfOr", "IfXor",   "EndIfXor", "Then",      "Else",     "IfAny", "EndIfAny",
            "/*",      "*/",      "//",       "\"",        "Otherwise"};
        return words;
    }

    void CheckRule(const RuleIndexRecord& record) {
        name_ = Text(record.name);
        A = {};
        B = {};
        PCom = {};
        niv1.assign(1, -1);
        niv2.assign(1, -1);
        p = 0;
        Ret = 0;
        for (int read = 0; read < record.size && pos_ < file_.size(); ++read)
            Character(file_[pos_++]);
        Error("Secon Debug:");
        if (B[0] == 0)
            Error("There is no Rule");
        if (B[1] == 0)
            Error("There is no EndRule");
        Balance(2, "There are ForAll without EndForAll", "There are too many EndForAll");
        Balance(4, "There are If without EndIf", "There are too many EndIf");
        Balance(6, "There are IfOr whithout EndIfOr", "There are too many EndIfOr");
        Balance(12, "There are IfAny whithout EndIfAny", "There are too many EndIfAny");
    }

    void Balance(int begin, const char* open, const char* surplus) {
        if (B[begin] > B[begin + 1])
            Error(open);
        if (B[begin + 1] > B[begin])
            Error(surplus);
    }

    void Character(char c) {
        for (int k = 0; k < 19; ++k) {
            const std::string& word = Com()[k];
            if (c == word[A[k]]) {
                if (A[k] + 1 == static_cast<int>(word.size())) {
                    PCom[k] = 1;
                    A[k] = 0;
                } else {
                    A[k] += 1;
                }
            } else {
                A[k] = 0;
            }
        }
        if (c == '\r')
            Ret = 1;
        else if (c == '\n' && Ret == 1)
            Ret = 2;
        else
            Ret = 0;
        if (Ret == 2)
            NumLin += 1;
        DebugError(ObsInst());
    }

    bool KindFollows() const {
        if (pos_ >= file_.size())
            return false;
        const char next = file_[pos_];
        return next == 'O' || next == 'A' || next == 'X';
    }

    int ObsInst() {
        int code = -1;
        const std::array<int, 19> set = PCom;
        PCom = {};
        auto count = [&](int k) {
            B[k] += 1;
            code = k;
        };
        if (set[0])
            count(0);
        if (set[1])
            count(1);
        if (set[2] && !set[3])
            count(2);
        if (set[3])
            count(3);
        if (set[4] && !set[5] && !KindFollows())
            count(4);
        if (set[5] && !KindFollows())
            count(5);
        if (set[6] && !set[7])
            count(6);
        if (set[7])
            count(7);
        if (set[8] && !set[9])
            count(8);
        if (set[9])
            count(9);
        if (set[10])
            code = 10;
        if (set[11])
            code = 11;
        if (set[12] && !set[13])
            count(12);
        for (int k = 13; k <= 18; ++k)
            if (set[k])
                count(k);
        return code;
    }

    void DebugError(int code) {
        if (code == 14)
            Anul = 2;
        if (code == 16)
            Anul = 1;
        if (code == 17)
            Anul = Anul == 3 ? 0 : 3;
        if (Anul > 0) {
            if (code == 15 && Anul == 2)
                Anul = 0;
            if (Ret == 2 && Anul == 1)
                Anul = 0;
            return;
        }
        Structure(code);
    }

    void Push(int k) {
        p += 1;
        niv1.push_back(k);
        niv2.push_back(k);
    }

    void Pop() {
        niv1.pop_back();
        niv2.pop_back();
        p -= 1;
    }

    void Open(int code) {
        switch (niv2[p]) {
        case 4:
            return Error("There are If whithout Then");
        case 6:
            return Error("There are IfOr whithout Then");
        case 8:
            return Error("There are IfXor whithout Then");
        case 12:
            return Error("There are IfAny whithout Then");
        }
        Push(code);
    }

    void EndIf(int begin, const char* surplus) {
        const int kind = niv1[p];
        if (niv2[p] == 10 || niv2[p] == 11) {
            if ((kind == 4 || kind == 6 || kind == 8) && kind != begin)
                Error("Wrong Kind of End for this If");
            if (p != 0)
                Pop();
            else
                Error(surplus);
        } else if (niv2[p] == 18) {
            // Neither a message nor an effect.
        } else if (kind == 4) {
            Error("There are If whithout Then");
        } else if (kind == 6) {
            Error("There are IfOr whithout Then");
        } else if (kind == 8) {
            Error("There are IfXor whithout Then");
        }
    }

    void Structure(int code) {
        switch (code) {
        case 0:
            if (p == 0 && niv2[0] == -1)
                niv2[0] = 0;
            else
                Error("Command Before Rule");
            break;
        case 1:
            if (p == 0 && niv2[0] == 0)
                niv2[0] = 1;
            else
                Error("There is a If or a For without End");
            break;
        case 2:
        case 4:
        case 6:
        case 8:
        case 12:
            Open(code);
            break;
        case 3:
            if (niv2[p] == 2 && p != 0)
                Pop();
            else
                Error("There are too many EndForAll");
            break;
        case 5:
            EndIf(4, "There are too many EndIf");
            break;
        case 7:
            EndIf(6, "There are too many EndIfOr");
            break;
        case 9:
            EndIf(8, "There are too many EndIfXor");
            break;
        case 10:
            if (niv2[p] == 4 || niv2[p] == 6 || niv2[p] == 8 || niv2[p] == 12)
                niv2[p] = 10;
            else
                Error("There are Then whithout any kind of If");
            break;
        case 11:
            if (niv2[p] == 10)
                niv2[p] = 11;
            else
                Error("There are Else whithout Then");
            break;
        case 13:
            if (niv2[p] == 10 || niv2[p] == 18) {
                if (p != 0)
                    Pop();
                else
                    Error("There are too many EndIfAny");
            } else {
                Error("There are IfAny whithout Then");
            }
            break;
        case 18:
            if (niv2[p] == 10)
                niv2[p] = 18;
            else
                Error("There are Otherwise whithout Then");
            break;
        }
    }

    void Error(const std::string& message) {
        findings.push_back(name_ + " : Line :" + std::to_string(NumLin) + " : " + message);
    }

    const std::string file_;
    std::size_t pos_ = 0;
    int Anul;
    int Ret = 0;
    int NumLin = 0;
    std::string name_;
    std::array<int, 19> A{}, B{}, PCom{};
    std::vector<int> niv1, niv2;
    int p = 0;
};

} // namespace zentrik_test
