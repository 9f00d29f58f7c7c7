// The web console's keys and tokens. A password never travels: the browser hashes it with a key
// that the server handed out, and the server searches the raw request for the hash that it expects.
// There is one session at a time, that of the last login.
#pragma once

#include <string>

namespace varek {

/// 31 random letters and digits. The first and the last of the 62 characters come half as often.
std::string NewKey();

extern std::string LoginKey;    ///< shown by the login page
extern std::string SessionKey;  ///< the login key of the last login
extern std::string LoggedInIP;
extern std::string ControlKey;  ///< handed out last by a control page

std::string LoginToken();
std::string SessionToken();
std::string ControlToken();

}  // namespace varek
