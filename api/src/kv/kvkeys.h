// Command keys: the tokenizer that turns a command line, a .cfg line or a
// built-in text into key records, the record of one entry of the key table,
// and the translations of key arguments.
#ifndef KV_KEYS_H
#define KV_KEYS_H

#include "../kvstream.h"

class kvSession;

// One key of a command line: its letter and its argument.
struct kvCommandKey {
    kvCommandKey() : m_key(' ') {}
    kvCommandKey(char key, const kvString& arg) : m_key(key), m_arg(arg) {}

    // Copies the argument and returns true when the letter matches.
    bool getArg(char key, kvString& arg) const;
    // Fills the record from a key word and the word behind it; false when
    // `word` is no key string.
    bool setArg(kvString word, kvString next);

    char m_key;
    kvString m_arg;
};

// The keys of one command line in their order of appearance.
class kvCommandList : public kvList<kvCommandKey> {
public:
    virtual ~kvCommandList() {}

    void setArgs(int count, char** words);
    void setArgs(const char* line);
    void setArgs(const kvStringList& words);
    bool setArg(kvString word, kvString next);
    void setArg(char key, kvString arg);
    bool isKey(char key) const;
    // The argument of the last key with this letter.
    bool getArg(char key, kvString& arg) const;
};

typedef kvString (*kvOptionInfo)(kvString arg);
typedef void (*kvOptionApply)(kvString arg, kvSession* session);

// One entry of the key table.
struct kvOption {
    char m_key;
    bool m_hidden;       // works, but only -? shows it
    kvString m_help;     // empty: deprecated, left out of the extended help
    kvOptionInfo m_info;
    kvOptionApply m_apply;
    kvString m_descr;
};

// At least two characters, the first "/" or "-".
bool isKeyString(const kvString& word);

// -A: T 1, P 2, M 4 (upper case); nothing recognised means everything, 15.
int getAskLevel(kvString arg);
// -L: the union of the levels of the upper-case letters E W P I T M D.
OutputLevel getLevel(kvString arg);
// -Y: by the first character, H 1, N 2, L 3, else 0.
int getPriority(kvString arg);
// -f, -t: strips the prefix; 0 plain, 1 "+", 2 "-", 3 "=", 4 no pattern.
int getCondition(kvString& arg);

// The texts of the keys, in the order of the table.
extern const char* const B_help; extern const char* const B_descr;
extern const char* const A_help; extern const char* const A_descr;
extern const char* const d_help; extern const char* const d_descr;
extern const char* const i_help; extern const char* const i_descr;
extern const char* const I_help; extern const char* const I_descr;
extern const char* const P_help; extern const char* const P_descr;
extern const char* const o_help; extern const char* const o_descr;
extern const char* const O_help; extern const char* const O_descr;
extern const char* const L_help; extern const char* const L_descr;
extern const char* const r_help; extern const char* const r_descr;
extern const char* const R_help; extern const char* const R_descr;
extern const char* const q_help; extern const char* const q_descr;
extern const char* const Q_help; extern const char* const Q_descr;
extern const char* const u_help; extern const char* const u_descr;
extern const char* const U_help; extern const char* const U_descr;
extern const char* const g_help; extern const char* const g_descr;
extern const char* const n_help; extern const char* const n_descr;
extern const char* const p_help; extern const char* const p_descr;
extern const char* const l_help; extern const char* const l_descr;
extern const char* const f_help; extern const char* const f_descr;
extern const char* const t_help; extern const char* const t_descr;
extern const char* const F_help; extern const char* const F_descr;
extern const char* const Y_help; extern const char* const Y_descr;
extern const char* const H_help; extern const char* const H_descr;
extern const char* const T_help; extern const char* const T_descr;
extern const char* const N_help; extern const char* const N_descr;
extern const char* const S_help; extern const char* const S_descr;
extern const char* const C_help; extern const char* const C_descr;
extern const char* const s_help; extern const char* const s_descr;
extern const char* const e_help; extern const char* const e_descr;
extern const char* const v_help; extern const char* const v_descr;
extern const char* const h_help; extern const char* const h_descr;
extern const char* const hq_descr;

// What each key will do (info) and doing it (apply).
#define KV_DECLARE_KEY(k)                 \
    kvString k##_info(kvString arg);      \
    void k##_apply(kvString arg, kvSession* session)
KV_DECLARE_KEY(B); KV_DECLARE_KEY(A); KV_DECLARE_KEY(d); KV_DECLARE_KEY(i);
KV_DECLARE_KEY(I); KV_DECLARE_KEY(P); KV_DECLARE_KEY(o); KV_DECLARE_KEY(O);
KV_DECLARE_KEY(L); KV_DECLARE_KEY(r); KV_DECLARE_KEY(R); KV_DECLARE_KEY(q);
KV_DECLARE_KEY(Q); KV_DECLARE_KEY(u); KV_DECLARE_KEY(U); KV_DECLARE_KEY(g);
KV_DECLARE_KEY(n); KV_DECLARE_KEY(p); KV_DECLARE_KEY(l); KV_DECLARE_KEY(f);
KV_DECLARE_KEY(t); KV_DECLARE_KEY(F); KV_DECLARE_KEY(Y); KV_DECLARE_KEY(H);
KV_DECLARE_KEY(T); KV_DECLARE_KEY(N); KV_DECLARE_KEY(S); KV_DECLARE_KEY(C);
KV_DECLARE_KEY(s); KV_DECLARE_KEY(e); KV_DECLARE_KEY(v); KV_DECLARE_KEY(h);
KV_DECLARE_KEY(hq);
#undef KV_DECLARE_KEY

#endif
