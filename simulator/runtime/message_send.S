// The message-send entry points, over the runtime's method lookup, and what stands in an interposed method's place.
// Each keeps every argument register, asks for the implementation and jumps to it, so that arguments and results of
// any type pass untouched. A message to nil gives zero in every result register. An exception may pass through the
// asking.

#if defined(__x86_64__)

.macro SAVE_ARGUMENTS
    push %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset %rbp, -16
    mov %rsp, %rbp
    .cfi_def_cfa_register %rbp
    sub $0xc0, %rsp
    mov %rdi, -0x08(%rbp)
    mov %rsi, -0x10(%rbp)
    mov %rdx, -0x18(%rbp)
    mov %rcx, -0x20(%rbp)
    mov %r8, -0x28(%rbp)
    mov %r9, -0x30(%rbp)
    mov %rax, -0x38(%rbp)
    movups %xmm0, -0x50(%rbp)
    movups %xmm1, -0x60(%rbp)
    movups %xmm2, -0x70(%rbp)
    movups %xmm3, -0x80(%rbp)
    movups %xmm4, -0x90(%rbp)
    movups %xmm5, -0xa0(%rbp)
    movups %xmm6, -0xb0(%rbp)
    movups %xmm7, -0xc0(%rbp)
.endm

.macro RESTORE_ARGUMENTS
    mov -0x08(%rbp), %rdi
    mov -0x10(%rbp), %rsi
    mov -0x18(%rbp), %rdx
    mov -0x20(%rbp), %rcx
    mov -0x28(%rbp), %r8
    mov -0x30(%rbp), %r9
    mov -0x38(%rbp), %rax
    movups -0x50(%rbp), %xmm0
    movups -0x60(%rbp), %xmm1
    movups -0x70(%rbp), %xmm2
    movups -0x80(%rbp), %xmm3
    movups -0x90(%rbp), %xmm4
    movups -0xa0(%rbp), %xmm5
    movups -0xb0(%rbp), %xmm6
    movups -0xc0(%rbp), %xmm7
    mov %rbp, %rsp
    pop %rbp
    .cfi_def_cfa %rsp, 8
    .cfi_restore %rbp
.endm

    .text
    .globl objc_msgSend
    .type objc_msgSend, @function
objc_msgSend:
    .cfi_startproc
    test %rdi, %rdi
    jz simGiveNothing
    SAVE_ARGUMENTS
    call simLookUpMessage@PLT
    mov %rax, %r11
    RESTORE_ARGUMENTS
    jmp *%r11
    .cfi_endproc
    .size objc_msgSend, . - objc_msgSend

    .globl simGiveNothing
    .hidden simGiveNothing
    .type simGiveNothing, @function
simGiveNothing:
    .cfi_startproc
    xor %eax, %eax
    xor %edx, %edx
    pxor %xmm0, %xmm0
    pxor %xmm1, %xmm1
    ret
    .cfi_endproc
    .size simGiveNothing, . - simGiveNothing

    .globl simInterposed
    .hidden simInterposed
    .type simInterposed, @function
simInterposed:
    .cfi_startproc
    SAVE_ARGUMENTS
    call simChooseImplementation@PLT
    mov %rax, %r11
    RESTORE_ARGUMENTS
    jmp *%r11
    .cfi_endproc
    .size simInterposed, . - simInterposed

    // The result's address comes first, the receiver second.
    .globl objc_msgSend_stret
    .type objc_msgSend_stret, @function
objc_msgSend_stret:
    .cfi_startproc
    test %rsi, %rsi
    jz 1f
    SAVE_ARGUMENTS
    mov %rsi, %rdi
    mov %rdx, %rsi
    call simLookUpMessage@PLT
    mov %rax, %r11
    RESTORE_ARGUMENTS
    jmp *%r11
1:  mov %rdi, %rax
    ret
    .cfi_endproc
    .size objc_msgSend_stret, . - objc_msgSend_stret

#elif defined(__aarch64__)

.macro SAVE_ARGUMENTS
    stp x29, x30, [sp, #-0xe0]!
    .cfi_def_cfa_offset 0xe0
    .cfi_offset x29, -0xe0
    .cfi_offset x30, -0xd8
    mov x29, sp
    .cfi_def_cfa_register x29
    stp x0, x1, [sp, #0x10]
    stp x2, x3, [sp, #0x20]
    stp x4, x5, [sp, #0x30]
    stp x6, x7, [sp, #0x40]
    str x8, [sp, #0x50]
    stp q0, q1, [sp, #0x60]
    stp q2, q3, [sp, #0x80]
    stp q4, q5, [sp, #0xa0]
    stp q6, q7, [sp, #0xc0]
.endm

.macro RESTORE_ARGUMENTS
    ldp x0, x1, [sp, #0x10]
    ldp x2, x3, [sp, #0x20]
    ldp x4, x5, [sp, #0x30]
    ldp x6, x7, [sp, #0x40]
    ldr x8, [sp, #0x50]
    ldp q0, q1, [sp, #0x60]
    ldp q2, q3, [sp, #0x80]
    ldp q4, q5, [sp, #0xa0]
    ldp q6, q7, [sp, #0xc0]
    ldp x29, x30, [sp], #0xe0
    .cfi_def_cfa sp, 0
    .cfi_restore x29
    .cfi_restore x30
.endm

    .text
    .globl objc_msgSend
    .type objc_msgSend, %function
objc_msgSend:
    .cfi_startproc
    cbz x0, simGiveNothing
    SAVE_ARGUMENTS
    bl simLookUpMessage
    mov x16, x0
    RESTORE_ARGUMENTS
    br x16
    .cfi_endproc
    .size objc_msgSend, . - objc_msgSend

    .globl simGiveNothing
    .hidden simGiveNothing
    .type simGiveNothing, %function
simGiveNothing:
    .cfi_startproc
    mov x0, #0
    mov x1, #0
    movi v0.2d, #0
    movi v1.2d, #0
    movi v2.2d, #0
    movi v3.2d, #0
    ret
    .cfi_endproc
    .size simGiveNothing, . - simGiveNothing

    .globl simInterposed
    .hidden simInterposed
    .type simInterposed, %function
simInterposed:
    .cfi_startproc
    SAVE_ARGUMENTS
    bl simChooseImplementation
    mov x16, x0
    RESTORE_ARGUMENTS
    br x16
    .cfi_endproc
    .size simInterposed, . - simInterposed

#else
#error "no message-send trampolines for this processor yet"
#endif

    .section .note.GNU-stack, "", %progbits
