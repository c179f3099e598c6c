/* send [--wait] HOST PORT VALUE...: sends one record to a station, in its default framing.
   The values are sent as the bytes they are: code page 1252, or UTF-8 for a station that has
   Encoding=utf-8. With --wait it waits up to a minute for the answer of a station that has
   AnswerHost=True, writes it, and ends with 0 only if the cards were handed over.
   Build it with: cc -o send send.c */
#define _POSIX_C_SOURCE 200809L
#include <errno.h>
#include <netdb.h>
#include <stdio.h>
#include <string.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

/* Says what went wrong where it gives -1. */
static int connect_to(const char* host, const char* port)
{
    struct addrinfo wanted;
    struct addrinfo* found = NULL;
    int line = -1;
    memset(&wanted, 0, sizeof wanted);
    wanted.ai_socktype = SOCK_STREAM;
    const int unknown = getaddrinfo(host, port, &wanted, &found);
    if (unknown != 0) {
        fprintf(stderr, "send: %s port %s: %s\n", host, port, gai_strerror(unknown));
        return -1;
    }
    for (struct addrinfo* at = found; at != NULL && line < 0; at = at->ai_next) {
        line = socket(at->ai_family, at->ai_socktype, at->ai_protocol);
        if (line >= 0 && connect(line, at->ai_addr, at->ai_addrlen) != 0) {
            const int why = errno;
            close(line);
            errno = why;
            line = -1;
        }
    }
    if (line < 0)
        perror("send");
    freeaddrinfo(found);
    return line;
}

static int send_all(int line, const char* bytes, size_t count)
{
    while (count > 0) {
        const ssize_t sent = send(line, bytes, count, MSG_NOSIGNAL);
        if (sent <= 0)
            return -1;
        bytes += sent;
        count -= (size_t)sent;
    }
    return 0;
}

/* Reads one line, without its end. The station may send it in pieces. */
static int receive_line(int line, char* text, size_t size)
{
    const struct timeval limit = {60, 0};
    size_t length = 0;
    setsockopt(line, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    while (length + 1 < size && recv(line, text + length, 1, 0) == 1) {
        if (text[length] == '\n') {
            text[length] = '\0';
            text[strcspn(text, "\r")] = '\0';
            return 0;
        }
        length++;
    }
    return -1;
}

int main(int argc, char** argv)
{
    char record[65536] = "<";
    char answer[1024];
    size_t length = 1;
    const int wait = argc > 1 && strcmp(argv[1], "--wait") == 0;
    argc -= wait;
    argv += wait;
    if (argc < 4) {
        fprintf(stderr, "usage: send [--wait] HOST PORT VALUE...\n");
        return 2;
    }
    for (int i = 3; i < argc; i++) {
        const size_t size = strlen(argv[i]);
        /* An empty value takes no position and a delimiter would end the value. */
        if (size == 0 || strpbrk(argv[i], "<+>") != NULL || length + size + 2 > sizeof record) {
            fprintf(stderr, "send: cannot be sent: '%s'\n", argv[i]);
            return 1;
        }
        memcpy(record + length, argv[i], size);
        length += size;
        record[length++] = i + 1 < argc ? '+' : '>';
    }
    const int line = connect_to(argv[1], argv[2]);
    if (line < 0)
        return 1;
    if (send_all(line, record, length) != 0) {
        perror("send");
        return 1;
    }
    if (!wait)
        return close(line) == 0 ? 0 : 1;
    if (receive_line(line, answer, sizeof answer) != 0) {
        fprintf(stderr, "send: no answer\n");
        return 1;
    }
    close(line);
    puts(answer);
    return strncmp(answer, "OK ", 3) == 0 ? 0 : 1;
}
