/* A program outside the project that uses the installed library. */
#include <stdio.h>

#include <vdlsr.h>

int main(void)
{
    const float frame[3] = {1, 2, 3}, mean[3] = {1, 2, 2}, prec[3] = {1, 1, 2};
    float score = 0;
    if (vdlsLogGauss_32f_D2(frame, 3, mean, prec, 3, &score, 1, 0.0f) != vdlStsNoErr)
        return 1;
    printf("%s %s score %.2f\n", vdlsrGetLibVersion()->Name, vdlsrGetLibVersion()->Version, score);
    return score == -1.0f ? 0 : 1;
}
