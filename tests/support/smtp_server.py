#!/usr/bin/python3
"""A loopback SMTP server for the tests, on aiosmtpd (python3-aiosmtpd).

  smtp_server.py serve MAILDIR [--login USER:PASSWORD] [--refuse-login] [--drop-after-data]
                 [--reject ADDRESS]
      Takes every message into the Maildir, or misbehaves as told. Prints "ready PORT" once it
      listens on 127.0.0.1, and stops when its standard input closes.
  smtp_server.py unpack MAILDIR OUTDIR
      Writes, for message n (in the order received), n.txt with its From, To, Subject, the names
      of its headers and its note text, and n-NAME for each attachment, decoded.
"""
import argparse
import email
import email.policy
import mailbox
import os
import socket
import sys

def serve(args):
    from aiosmtpd.controller import Controller
    from aiosmtpd.smtp import AuthResult, LoginPassword

    box = mailbox.Maildir(args.maildir, create=True)
    count = [0]

    class Handler:
        async def handle_RCPT(self, server, session, envelope, address, rcpt_options):
            if address == args.reject:
                return "550 5.1.1 No such user"
            envelope.rcpt_tos.append(address)
            return "250 OK"

        async def handle_DATA(self, server, session, envelope):
            if args.drop_after_data:
                session.transport.close()
                return "421 Closing"
            count[0] += 1
            msg = mailbox.MaildirMessage(envelope.original_content or envelope.content)
            key = box.add(msg)
            os.rename(os.path.join(args.maildir, "new", key),
                      os.path.join(args.maildir, "new", "%06d" % count[0]))
            return "250 OK"

    def authenticator(server, session, envelope, mechanism, auth_data):
        if args.refuse_login or not isinstance(auth_data, LoginPassword):
            return AuthResult(success=False, handled=False)
        user, _, password = args.login.partition(":")
        ok = auth_data.login.decode() == user and auth_data.password.decode() == password
        return AuthResult(success=ok, handled=False)

    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        port = probe.getsockname()[1]
    needs_login = bool(args.login or args.refuse_login)
    controller = Controller(Handler(), hostname="127.0.0.1", port=port,
                            authenticator=authenticator if needs_login else None,
                            auth_required=needs_login, auth_require_tls=False,
                            data_size_limit=None)
    controller.start()
    print("ready", port, flush=True)
    sys.stdin.read()
    controller.stop()

def unpack(args):
    os.makedirs(args.outdir, exist_ok=True)
    new = os.path.join(args.maildir, "new")
    for n, name in enumerate(sorted(os.listdir(new)), 1):
        with open(os.path.join(new, name), "rb") as f:
            msg = email.message_from_binary_file(f, policy=email.policy.default)
        body = msg.get_body(preferencelist=("plain",))
        with open(os.path.join(args.outdir, "%d.txt" % n), "w") as out:
            out.write("From: %s\nTo: %s\nSubject: %s\nHeaders: %s\nBody: %s\n" % (
                msg["From"], msg["To"], msg["Subject"], ",".join(msg.keys()),
                body.get_content().strip() if body else ""))
        for part in msg.iter_attachments():
            with open(os.path.join(args.outdir, "%d-%s" % (n, part.get_filename())), "wb") as out:
                out.write(part.get_payload(decode=True))

parser = argparse.ArgumentParser()
sub = parser.add_subparsers(dest="command", required=True)
s = sub.add_parser("serve")
s.add_argument("maildir")
s.add_argument("--login", default="")
s.add_argument("--refuse-login", action="store_true")
s.add_argument("--drop-after-data", action="store_true")
s.add_argument("--reject", default="")
u = sub.add_parser("unpack")
u.add_argument("maildir")
u.add_argument("outdir")
args = parser.parse_args()
serve(args) if args.command == "serve" else unpack(args)
