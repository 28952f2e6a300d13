# a
/* b */ user_pref('mail.accountmanager.accounts', "a, b");user_pref("mail.account.a.identities","i");
user_pref("mail.identity.i.useremail","\uD83D\uDE00\x41@b"); // c
user_pref("mail.smtpservers","s");
user_pref("mail.smtpserver.s.hostname","h\n");
user_pref("mail.smtpserver.s.port", -1);
user_pref("t",true) ; user_pref ( "f" , false );
user_pref("broken, 1);
user_pref("mail.smtpserver.s.hostname","h");
