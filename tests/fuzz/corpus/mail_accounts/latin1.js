user_pref("mail.a","été");
user_pref("mail.b", "\x00");
