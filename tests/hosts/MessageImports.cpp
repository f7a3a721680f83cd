/// `objc_msgSend` and its like over the runtime at hand, which knows only how to look a method up.
///
/// The arguments stay where they are, in registers and on the stack, while the method is looked up; then the method is
/// jumped to. A message to nil answers zero in the registers for integers and for floats; memory for an answer stays as
/// it was.

// panotraFindMethod(receiver, selector) is RuntimeImports.mm's.

#if defined(__x86_64__)

// 192 bytes hold the six registers for integers, that for the number of float arguments, and the eight for
// floats. The return address and the frame pointer stand before them, which leaves the stack aligned.
asm(R"(
    .text
    .globl __wrap_objc_msgSend
    .type __wrap_objc_msgSend, @function
__wrap_objc_msgSend:
    testq %rdi, %rdi
    je 1f
    pushq %rbp
    movq %rsp, %rbp
    call panotraSaveArguments
    call panotraFindMethod
    jmp panotraRestoreArgumentsAndJump
1:  xorl %eax, %eax
    xorl %edx, %edx
    pxor %xmm0, %xmm0
    pxor %xmm1, %xmm1
    ret

    .globl __wrap_objc_msgSend_stret
    .type __wrap_objc_msgSend_stret, @function
__wrap_objc_msgSend_stret:
    testq %rsi, %rsi
    je 1f
    pushq %rbp
    movq %rsp, %rbp
    call panotraSaveArguments
    movq %rsi, %rdi
    movq %rdx, %rsi
    call panotraFindMethod
    jmp panotraRestoreArgumentsAndJump
1:  movq %rdi, %rax
    ret

panotraSaveArguments:
    popq %r11
    subq $192, %rsp
    movq %rdi, 0(%rsp)
    movq %rsi, 8(%rsp)
    movq %rdx, 16(%rsp)
    movq %rcx, 24(%rsp)
    movq %r8, 32(%rsp)
    movq %r9, 40(%rsp)
    movq %rax, 48(%rsp)
    movdqu %xmm0, 64(%rsp)
    movdqu %xmm1, 80(%rsp)
    movdqu %xmm2, 96(%rsp)
    movdqu %xmm3, 112(%rsp)
    movdqu %xmm4, 128(%rsp)
    movdqu %xmm5, 144(%rsp)
    movdqu %xmm6, 160(%rsp)
    movdqu %xmm7, 176(%rsp)
    jmp *%r11

panotraRestoreArgumentsAndJump:
    movq %rax, %r11
    movq 0(%rsp), %rdi
    movq 8(%rsp), %rsi
    movq 16(%rsp), %rdx
    movq 24(%rsp), %rcx
    movq 32(%rsp), %r8
    movq 40(%rsp), %r9
    movq 48(%rsp), %rax
    movdqu 64(%rsp), %xmm0
    movdqu 80(%rsp), %xmm1
    movdqu 96(%rsp), %xmm2
    movdqu 112(%rsp), %xmm3
    movdqu 128(%rsp), %xmm4
    movdqu 144(%rsp), %xmm5
    movdqu 160(%rsp), %xmm6
    movdqu 176(%rsp), %xmm7
    leave
    jmp *%r11
)");

#elif defined(__aarch64__)

asm(R"(
    .text
    .globl __wrap_objc_msgSend
    .type __wrap_objc_msgSend, %function
__wrap_objc_msgSend:
    cbz x0, 1f
    stp x29, x30, [sp, #-224]!
    mov x29, sp
    stp x0, x1, [sp, #16]
    stp x2, x3, [sp, #32]
    stp x4, x5, [sp, #48]
    stp x6, x7, [sp, #64]
    str x8, [sp, #80]
    stp q0, q1, [sp, #96]
    stp q2, q3, [sp, #128]
    stp q4, q5, [sp, #160]
    stp q6, q7, [sp, #192]
    bl panotraFindMethod
    mov x16, x0
    ldp x0, x1, [sp, #16]
    ldp x2, x3, [sp, #32]
    ldp x4, x5, [sp, #48]
    ldp x6, x7, [sp, #64]
    ldr x8, [sp, #80]
    ldp q0, q1, [sp, #96]
    ldp q2, q3, [sp, #128]
    ldp q4, q5, [sp, #160]
    ldp q6, q7, [sp, #192]
    ldp x29, x30, [sp], #224
    br x16
1:  mov x1, #0
    movi d0, #0
    movi d1, #0
    movi d2, #0
    movi d3, #0
    ret
)");

#endif
