*> Stores numbers in every usage under test, and shows what it stored. The columns stand in two
*> copybooks under the same names: shown.cpy as signed digits, stored.cpy in their own usage.
*> Files: "asked" (shown.cpy) -> "stored" (stored.cpy), "shown" (shown.cpy).
identification division.
program-id. encode.
environment division.
input-output section.
file-control.
    select asked-file assign to "asked" organization sequential.
    select stored-file assign to "stored" organization sequential.
    select shown-file assign to "shown" organization sequential.
data division.
file section.
fd asked-file.
01 asked.
    copy "shown.cpy".
fd stored-file.
01 stored.
    copy "stored.cpy".
fd shown-file.
01 shown.
    copy "shown.cpy".
working-storage section.
01 at-end pic 9 value 0.
procedure division.
    open input asked-file output stored-file shown-file
    read asked-file at end move 1 to at-end end-read
    perform until at-end = 1
        move corresponding asked to stored
        move corresponding stored to shown
        write stored
        write shown
        read asked-file at end move 1 to at-end end-read
    end-perform
    close asked-file stored-file shown-file
    stop run.
