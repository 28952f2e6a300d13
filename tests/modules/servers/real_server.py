#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Starts a server that people run, as Debian ships it, on loopback and as the user who runs the test.

    real_server.py vsftpd|proftpd|exim PACKAGES WORK CERTIFICATE KEY

These packages exclude each other and start daemons when they are installed, so that nothing is installed: PACKAGES is
a folder of the build tree into which the .deb files are fetched and unpacked, once. WORK is an empty folder for what the
server writes: the files that came in below WORK/site, mails below WORK/mail. Prints the port when the server answers,
or "skip: REASON" where a package cannot be had, and runs until its standard input ends.
"""
import ctypes
import fcntl
import grp
import os
import pwd
import shutil
import signal
import socket
import subprocess
import sys
import time

ANNA, PASSWORD = "anna", "s3cret&mot"
NOBODY = 65534

# With the libraries that a machine for tests need not have.
PACKAGES = {
    "vsftpd": ["vsftpd", "libwrap0"],
    "proftpd": ["proftpd-core", "proftpd-mod-crypto", "libmemcached11", "libmemcachedutil2", "libhashkit2",
                "libhiredis0.14", "libsodium23"],
    "exim": ["exim4-daemon-light", "libnss-wrapper", "libnsl2", "libidn12", "libgnutls-dane0", "libunbound8",
             "libevent-2.1-7"],
}


class Skip(Exception):
    pass


def fetch(kind, packages):
    """Gives the root of the unpacked packages."""
    os.makedirs(packages, exist_ok=True)
    root = os.path.join(packages, kind)
    with open(os.path.join(packages, kind + ".lock"), "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)  # tests run side by side
        if os.path.isdir(root):
            return root
        new = root + ".new"
        shutil.rmtree(new, ignore_errors=True)
        os.makedirs(os.path.join(new, "deb"))
        try:
            apt = ["apt-get", "-qq", "-o", "Acquire::http::Timeout=20", "-o", "Acquire::Retries=1", "download"]
            got = subprocess.run(apt + PACKAGES[kind], cwd=os.path.join(new, "deb"), stdin=subprocess.DEVNULL,
                                 stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=180, text=True)
        except (OSError, subprocess.TimeoutExpired) as error:
            raise Skip("apt-get download: %s" % error)
        if got.returncode != 0:
            raise Skip("apt-get download %s: %s" % (" ".join(PACKAGES[kind]), " ".join(got.stdout.split())))
        for name in sorted(os.listdir(os.path.join(new, "deb"))):
            subprocess.run(["dpkg", "-x", os.path.join(new, "deb", name), new], check=True)
        disarm(new)
        os.rename(new, root)
    return root


def disarm(root):
    """Nothing in a build tree is to make anybody root; nor would such a program take what LD_PRELOAD names."""
    for folder, _, files in os.walk(root):
        for name in files:
            path = os.path.join(folder, name)
            if not os.path.islink(path):
                os.chmod(path, os.stat(path).st_mode & 0o777)


def libraries(root):
    places = [os.path.join(root, top, folder) for top in ("usr/lib", "lib")
              if os.path.isdir(os.path.join(root, top)) for folder in os.listdir(os.path.join(root, top))
              if folder.endswith("-linux-gnu")]
    return ":".join(places)


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def write(path, text, mode=0o600):
    with open(path, "w") as file:
        file.write(text)
    os.chmod(path, mode)
    return path


def vsftpd(root, work, port, cert, key, user):
    # Its own default for TLS: what a data connection does not resume is refused. Guests are let in with any password;
    # all other users would be the system's.
    name = user.pw_name
    config = write(work + "/vsftpd.conf", "\n".join([
        "listen=YES", "listen_address=127.0.0.1", "listen_port=%d" % port, "background=NO",
        "run_as_launching_user=YES", "nopriv_user=" + name, "ftp_username=" + name, "seccomp_sandbox=NO",
        "secure_chroot_dir=" + work, "anonymous_enable=YES", "local_enable=NO", "write_enable=YES",
        "anon_root=%s/site" % work, "anon_upload_enable=YES", "anon_other_write_enable=YES",
        "anon_mkdir_write_enable=YES", "allow_writeable_chroot=YES", "anon_umask=022",
        "xferlog_enable=YES", "log_ftp_protocol=YES", "xferlog_std_format=NO", "vsftpd_log_file=%s/log" % work,
        "ssl_enable=YES", "allow_anon_ssl=YES", "force_anon_data_ssl=YES", "force_anon_logins_ssl=YES",
        "rsa_cert_file=" + cert, "rsa_private_key_file=" + key]) + "\n")
    return [root + "/usr/sbin/vsftpd", config], {}


def proftpd(root, work, port, cert, key, user):
    hashed = subprocess.run(["openssl", "passwd", "-6", PASSWORD], stdout=subprocess.PIPE, check=True,
                            text=True).stdout.strip()
    users = write(work + "/users", "%s:%s:%d:%d::%s/site:/bin/sh\n" % (ANNA, hashed, user.pw_uid, user.pw_gid, work))
    config = write(work + "/proftpd.conf", """
ModulePath %(root)s/usr/lib/proftpd
LoadModule mod_tls.c
ServerType standalone
DefaultServer on
DefaultAddress 127.0.0.1
Port %(port)d
UseIPv6 off
User %(user)s
Group %(group)s
RootRevoke on
AuthOrder mod_auth_file.c
AuthUserFile %(users)s
AuthFileOptions InsecurePerms
RequireValidShell off
WtmpLog off
TransferLog none
SystemLog %(work)s/log
PidFile %(work)s/pid
ScoreboardFile %(work)s/scoreboard
DelayEngine off
ControlsEngine off
<IfModule mod_tls.c>
  TLSEngine on
  TLSLog %(work)s/tls.log
  TLSRequired on
  TLSRSACertificateFile %(cert)s
  TLSRSACertificateKeyFile %(key)s
</IfModule>
""" % {"root": root, "port": port, "user": user.pw_name, "group": grp.getgrgid(user.pw_gid).gr_name, "users": users, "work": work, "cert": cert,
       "key": key})
    return [root + "/usr/sbin/proftpd", "-n", "-q", "-c", config], {}


def exim(root, work, port, cert, key, user):
    # The user under whose name it was built is looked up at each start.
    passwd = write(work + "/passwd", "".join("%s:x:%d:%d::/:/bin/false\n" % (name, uid, gid) for name, uid, gid in (
        ("root", 0, 0), (user.pw_name, user.pw_uid, user.pw_gid), ("Debian-exim", user.pw_uid, user.pw_gid),
        ("mail", 8, 8))))
    group = write(work + "/group", "root:x:0:\nDebian-exim:x:%d:\nmail:x:8:\n%s:x:%d:\n"
                  % (user.pw_gid, user.pw_name, user.pw_gid))
    config = write(work + "/exim.conf", """
exim_path = %(root)s/usr/sbin/exim4
keep_environment = *
primary_hostname = localhost
spool_directory = %(work)s/spool
log_file_path = %(work)s/%%slog
local_interfaces = 127.0.0.1
daemon_smtp_ports = %(port)d
deliver_drop_privilege = true
never_users =
host_lookup =
rfc1413_query_timeout = 0s
tls_advertise_hosts = *
tls_certificate = %(cert)s
tls_privatekey = %(key)s
auth_advertise_hosts = ${if eq{$tls_in_cipher}{}{}{*}}
acl_smtp_rcpt = rcpt
begin acl
rcpt:
  accept authenticated = *
  deny message = relay not permitted
begin routers
all:
  driver = accept
  transport = file
begin transports
file:
  driver = appendfile
  file = %(work)s/mail/$message_exim_id
  create_file = anywhere
  mode = 0600
  envelope_to_add = true
  no_check_owner
begin authenticators
plain:
  driver = plaintext
  public_name = PLAIN
  server_prompts = :
  server_condition = ${if and{{eq{$auth2}{%(anna)s}}{eq{$auth3}{%(password)s}}}}
  server_set_id = $auth2
login:
  driver = plaintext
  public_name = LOGIN
  server_prompts = Username:: : Password::
  server_condition = ${if and{{eq{$auth1}{%(anna)s}}{eq{$auth2}{%(password)s}}}}
  server_set_id = $auth1
""" % {"root": root, "work": work, "port": port, "cert": cert, "key": key, "anna": ANNA, "password": PASSWORD}, 0o644)
    places = {"LD_PRELOAD": libraries(root).split(":")[0] + "/libnss_wrapper.so", "NSS_WRAPPER_PASSWD": passwd,
              "NSS_WRAPPER_GROUP": group}
    return [root + "/usr/sbin/exim4", "-C", config, "-bdf", "-q1m"], places


SERVERS = {"vsftpd": vsftpd, "proftpd": proftpd, "exim": exim}


def own(path, user):
    for folder, _, files in os.walk(path):
        for name in [folder] + [os.path.join(folder, file) for file in files]:
            os.chown(name, user.pw_uid, user.pw_gid)


def become(user):
    """In the child. The order counts: a change of the user takes the wish to die with the parent back."""
    if os.getuid() == 0:
        os.setgroups([])
        os.setgid(user.pw_gid)
        os.setuid(user.pw_uid)
    ctypes.CDLL(None).prctl(1, signal.SIGKILL)


def wait_for(port, process):
    for _ in range(200):
        if process.poll() is not None:
            raise RuntimeError("the server ended with %s" % process.returncode)
        try:
            with socket.create_connection(("127.0.0.1", port), timeout=5) as peer:
                if peer.recv(4).startswith(b"220"):
                    return
        except OSError:
            pass
        time.sleep(0.1)
    raise RuntimeError("the server does not answer")


def main():
    kind, packages, work, cert, key = sys.argv[1], *[os.path.abspath(path) for path in sys.argv[2:6]]
    try:
        root = fetch(kind, packages)
    except Skip as reason:
        print("skip: %s" % reason, flush=True)
        return
    for folder in ("site", "mail", "spool"):
        os.makedirs(os.path.join(work, folder), exist_ok=True)
    shutil.copy(cert, work + "/cert.pem")
    shutil.copy(key, work + "/key.pem")
    # All of them want to be somebody else once they have the port, and one refuses to be root.
    user = pwd.getpwuid(os.getuid() or NOBODY)
    port = free_port()
    command, places = SERVERS[kind](root, work, port, work + "/cert.pem", work + "/key.pem", user)
    if os.getuid() == 0:
        own(work, user)
    environment = dict(os.environ, LD_LIBRARY_PATH=libraries(root), **places)
    try:
        process = subprocess.Popen(command, env=environment, cwd="/", stdin=subprocess.DEVNULL, stdout=sys.stderr,
                                   preexec_fn=lambda: become(user), start_new_session=True)
    except PermissionError as error:
        print("skip: %s may not start it here: %s" % (user.pw_name, error), flush=True)
        return
    try:
        wait_for(port, process)
        print(port, flush=True)
        sys.stdin.read()
    finally:
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()


if __name__ == "__main__":
    main()
